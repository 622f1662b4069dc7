// The IPv4 dialog: three radio rows, then the three address rows that only the static choice enables.
#include "network/IPConfigurationDialog.h"

#include "network/NetworkForms.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/TextIds.h"

namespace Tarn {

using namespace HostCtl::Network;

namespace {

std::string AddressText(const Ipv4Address& address) {
    return address.GetBinaryAddress() == 0 ? "" : address.GetStringAddress();
}

} // namespace

IPConfigurationDialog::IPConfigurationDialog(Frame* parent, bool ipv4Disabled, bool useDhcp,
                                             const IpConfig& pending)
    : parent_(parent), disabled_(ipv4Disabled), dhcp_(useDhcp), config_(pending) {}

std::optional<IpConfig> IPConfigurationDialog::Ask() {
    const Frame& f = *parent_;
    RadioItem off(f.Text(TextId::DisableIpv4), disabled_ && !dhcp_);
    RadioItem dynamic(f.Text(TextId::DynamicIpv4), dhcp_);
    RadioItem fixed(f.Text(TextId::StaticIpv4), !dhcp_ && !disabled_);
    InputItem address(f.Text(TextId::Ipv4Address), AddressText(config_.GetIpv4Address()), -1,
                      FieldFilter::Ipv4Address);
    InputItem netmask(f.Text(TextId::SubnetMask), AddressText(config_.GetIpv4Netmask()), -1,
                      FieldFilter::Ipv4Address);
    InputItem gateway(f.Text(TextId::DefaultGateway), AddressText(config_.GetIpv4Gateway()), -1,
                      FieldFilter::Ipv4Address);

    Form<IpConfig> form(
        parent_, {72, 17, 7}, f.Text(TextId::Ipv4ConfigurationTitle), f.Text(TextId::Ipv4DialogBody),
        kRadioFormFooter, [&]() -> std::variant<IpConfig, FormError> {
            const Ipv4Mode mode = off.Chosen()       ? Ipv4Mode::Disabled
                                  : dynamic.Chosen() ? Ipv4Mode::Dynamic
                                                     : Ipv4Mode::Static;
            IpConfig config = config_;
            if (auto error = ValidateIpv4(mode, address.Value(), netmask.Value(), gateway.Value(), config))
                return ToFormError(f, *error);
            return config;
        });
    form.SetItems({&off, &dynamic, &fixed, &address, &netmask, &gateway});
    form.SetShowCursor(true);
    UseRadioRows(form, {&off, &dynamic, &fixed}, &fixed, {&address, &netmask, &gateway});
    return form.Ask();
}

} // namespace Tarn
