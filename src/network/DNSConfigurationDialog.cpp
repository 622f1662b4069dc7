// The DNS dialog: the automatic and manual radios, then the two servers and the host name, enabled only
// with the manual choice.
#include "network/DNSConfigurationDialog.h"

#include "network/NetworkForms.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/TextIds.h"

namespace Tarn {

DNSConfigurationDialog::DNSConfigurationDialog(Frame* parent, bool fromDhcp, bool dhcpInUse,
                                               const DnsServer& primary, const DnsServer& alternate,
                                               std::string hostname)
    : parent_(parent), fromDhcp_(fromDhcp), dhcpInUse_(dhcpInUse), primary_(primary), alternate_(alternate),
      hostname_(std::move(hostname)) {}

std::optional<DnsResult> DNSConfigurationDialog::Ask() {
    const Frame& f = *parent_;
    RadioItem automatic(f.Text(TextId::DnsAutomatic), fromDhcp_);
    RadioItem manual(f.Text(TextId::DnsManual), !fromDhcp_);
    // Without DHCP in use there is nothing to obtain the servers from.
    automatic.SetEnabled(dhcpInUse_ || fromDhcp_);
    InputItem primary(f.Text(TextId::PrimaryDnsServer), DnsServerText(primary_), -1, FieldFilter::IpAddress);
    InputItem alternate(f.Text(TextId::AlternateDnsServer), DnsServerText(alternate_), -1,
                        FieldFilter::IpAddress);
    InputItem hostname(f.Text(TextId::Hostname), hostname_, -1, FieldFilter::Text);

    Form<DnsResult> form(parent_, {72, 16, 6}, f.Text(TextId::DnsConfigurationTitle),
                         f.Text(TextId::DnsAutomaticNeedsDhcp), kRadioFormFooter,
                         [&]() -> std::variant<DnsResult, FormError> {
                             DnsResult result;
                             if (auto error = ValidateDns(automatic.Chosen(), primary.Value(),
                                                          alternate.Value(), hostname.Value(), result))
                                 return ToFormError(f, *error);
                             return result;
                         });
    form.SetItems({&automatic, &manual, &primary, &alternate, &hostname});
    form.SetShowCursor(true);
    UseRadioRows(form, {&automatic, &manual}, &manual, {&primary, &alternate, &hostname});
    return form.Ask();
}

} // namespace Tarn
