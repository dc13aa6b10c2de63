#include "support/TestEnvironment.h"

#include "app/Definitions.h"
#include "app/Resources.h"
#include "document/Document.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace selvora {
namespace test {

TestEnvironment::TestEnvironment() {
    const QByteArray path = home_.path().toUtf8();
    qputenv("HOME", path);
    qputenv("XDG_CONFIG_HOME", path + "/.config");
    qputenv("XDG_DATA_HOME", path + "/.local/share");
    qputenv("XDG_CACHE_HOME", path + "/.cache");
}

TestEnvironment::~TestEnvironment() = default;

void TestEnvironment::start() {
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName("Corvane Systems");
    QCoreApplication::setApplicationName("selvora-tests");
    initResources();
    document::Document::registerMetaTypes();
}

QString TestEnvironment::home() const {
    return home_.path();
}

void TestEnvironment::newProject() {
    document::Document::instance()->newProject();
}

} // namespace test
} // namespace selvora
