#include "project/ServiceAddresses.h"

#include <QRegularExpression>

namespace selvora {
namespace project {

namespace {
// The deployment's defaults: none is configured, so that the program never reaches for a host
// that does not exist.
const char* const kConversion = "";
const char* const kUpdates = "";
const char* const kContact = "";
const char* const kContactTo = "";
const char* const kPortal = "";
} // namespace

QString ServiceAddresses::setting(const char* variable, const char* fallback) {
    if (qEnvironmentVariableIsSet(variable))
        return qEnvironmentVariable(variable).trimmed();
    return QString::fromUtf8(fallback);
}

QUrl ServiceAddresses::conversionUrl(Definitions::kTypeExport type) {
    QString base = setting("SELVORA_CONVERSION_URL", kConversion);
    if (base.isEmpty())
        return QUrl();
    if (!base.endsWith(QLatin1Char('/')))
        base += QLatin1Char('/');
    return QUrl(base + (type == Definitions::kTypeExport::HTML
                            ? QStringLiteral("convert.php?type=html")
                            : QStringLiteral("translate.php")));
}

QStringList ServiceAddresses::updateUrls() {
    return setting("SELVORA_UPDATE_URLS", kUpdates)
        .split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

bool ServiceAddresses::hasContact() {
    return !setting("SELVORA_CONTACT_URL", kContact).isEmpty();
}

QUrl ServiceAddresses::contactUrl(const QString& from, const QString& message) {
    QUrl url(setting("SELVORA_CONTACT_URL", kContact));
    if (url.isEmpty())
        return QUrl();
    // Every value fully encoded: a "#" or a "+" of the message must not cut or change it.
    const auto encoded = [](const QString& value) {
        return QString::fromLatin1(QUrl::toPercentEncoding(value));
    };
    QString query = url.query(QUrl::FullyEncoded);
    if (!query.isEmpty())
        query += QLatin1Char('&');
    query += QStringLiteral("to=") + encoded(setting("SELVORA_CONTACT_TO", kContactTo)) +
             QStringLiteral("&from=") + encoded(from) + QStringLiteral("&message=") +
             encoded(message);
    url.setQuery(query, QUrl::StrictMode);
    return url;
}

QUrl ServiceAddresses::portalUrl() {
    return QUrl(setting("SELVORA_PORTAL_URL", kPortal));
}

} // namespace project
} // namespace selvora
