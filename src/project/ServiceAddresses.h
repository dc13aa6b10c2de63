#ifndef SELVORA_PROJECT_SERVICEADDRESSES_H
#define SELVORA_PROJECT_SERVICEADDRESSES_H

#include "app/Definitions.h"

#include <QString>
#include <QStringList>
#include <QUrl>

namespace selvora {
namespace project {

// Where the services on the network live. The hosts belong to the deployment, not to the
// program: the defaults below configure none, and each environment variable replaces its
// default. Read at every use, so that a running program follows the environment it was given.
//
//   SELVORA_CONVERSION_URL  base address of the conversion service
//   SELVORA_UPDATE_URLS     the version documents, separated by blanks, asked in that order
//   SELVORA_CONTACT_URL     the contact endpoint
//   SELVORA_CONTACT_TO      the recipient of the contact form
//   SELVORA_PORTAL_URL      the portal page opened after publishing
class ServiceAddresses {
public:
    // The service's address for one kind of export; empty when no service is configured.
    static QUrl conversionUrl(Definitions::kTypeExport type);
    static QStringList updateUrls();
    // The contact endpoint with the keys "to", "from" and "message"; empty when none is set.
    static QUrl contactUrl(const QString& from, const QString& message);
    static bool hasContact();
    static QUrl portalUrl();

private:
    static QString setting(const char* variable, const char* fallback);
};

} // namespace project
} // namespace selvora

#endif
