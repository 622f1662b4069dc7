// The IPv6 dialog: four choice rows, three static address rows and the gateway row, the last four enabled
// only with the static choice.
#include "network/IPv6ConfigurationDialog.h"

#include "network/NetworkForms.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/TextIds.h"

#include <array>
#include <cstdio>
#include <memory>

namespace Tarn {

using namespace HostCtl::Network;

IPv6ConfigurationDialog::IPv6ConfigurationDialog(Frame* parent, bool enabled, const IpConfig& stored,
                                                 const IpConfig& running)
    : parent_(parent), mode_(Ipv6ModeOf(enabled, stored)) {
    initial_.enabled = enabled;
    initial_.dhcpv6 = stored.GetUseIpv6Dhcp();
    initial_.routerAdvertised = stored.GetUseIpv6RouterAdvertised();
    for (const Ipv6Network& network : running.GetIpv6Network())
        if (network.GetIpv6AddressType() == Ipv6Network::TYPE_STATIC)
            initial_.staticNetworks.push_back(network);
    initial_.gateway = running.GetIpv6Gateway();
}

std::optional<Ipv6Result> IPv6ConfigurationDialog::Ask() {
    const Frame& f = *parent_;
    RadioItem off(f.Text(TextId::DisableIpv6), mode_ == Ipv6Mode::Disabled);
    RadioItem advertised(f.Text(TextId::DynamicIpv6), mode_ == Ipv6Mode::RouterAdvertised);
    RadioItem dhcpv6(f.Text(TextId::UseDhcpv6), mode_ == Ipv6Mode::Dhcpv6);
    RadioItem fixed(f.Text(TextId::StaticIpv6), mode_ == Ipv6Mode::Static);
    std::array<std::unique_ptr<InputItem>, 3> statics;
    for (size_t i = 0; i < statics.size(); ++i) {
        char label[64];
        std::snprintf(label, sizeof label, "%s #%d", f.Text(TextId::StaticAddress), static_cast<int>(i + 1));
        const std::string value = i < initial_.staticNetworks.size()
                                      ? initial_.staticNetworks[i].GetAddress().GetScopedStringAddress() +
                                            "/" + std::to_string(initial_.staticNetworks[i].GetPrefixLength())
                                      : "";
        statics[i] = std::make_unique<InputItem>(label, value, -1, FieldFilter::IpAddress);
    }
    const std::string gatewayText =
        initial_.gateway.IsUnspecified() ? "" : initial_.gateway.GetScopedStringAddress();
    // Zones ("%tes0") are part of a scoped address, so the gateway takes any printable text.
    InputItem gateway(f.Text(TextId::DefaultGatewayLabel), gatewayText, -1, FieldFilter::Text);

    Form<Ipv6Result> form(parent_, {72, 20, 8}, f.Text(TextId::Ipv6ConfigurationTitle),
                          f.Text(TextId::Ipv6DialogBody), kRadioFormFooter,
                          [&]() -> std::variant<Ipv6Result, FormError> {
                              Ipv6Input input;
                              input.mode = off.Chosen()          ? Ipv6Mode::Disabled
                                           : advertised.Chosen() ? Ipv6Mode::RouterAdvertised
                                           : dhcpv6.Chosen()     ? Ipv6Mode::Dhcpv6
                                                                 : Ipv6Mode::Static;
                              for (size_t i = 0; i < statics.size(); ++i)
                                  input.statics[i] = statics[i]->Value();
                              input.gateway = gateway.Value();
                              Ipv6Result result;
                              if (auto error = ValidateIpv6(input, initial_, result))
                                  return ToFormError(f, *error);
                              return result;
                          });
    form.SetItems(
        {&off, &advertised, &dhcpv6, &fixed, statics[0].get(), statics[1].get(), statics[2].get(), &gateway});
    form.SetShowCursor(true);
    UseRadioRows(form, {&off, &advertised, &dhcpv6, &fixed}, &fixed,
                 {statics[0].get(), statics[1].get(), statics[2].get(), &gateway});
    return form.Ask();
}

} // namespace Tarn
