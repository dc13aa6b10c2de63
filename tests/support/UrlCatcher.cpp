#include "support/UrlCatcher.h"

#include <QDesktopServices>

namespace selvora {
namespace test {

namespace {
const char* const kSchemes[] = {"http", "https", "file"};
}

UrlCatcher::UrlCatcher(QObject* parent) : QObject(parent) {
    for (const char* scheme : kSchemes)
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "open");
}

UrlCatcher::~UrlCatcher() {
    for (const char* scheme : kSchemes)
        QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
}

void UrlCatcher::open(const QUrl& url) {
    opened_.append(url);
}

} // namespace test
} // namespace selvora
