#include "support/TestEnvironment.h"

#include "app/Definitions.h"
#include "app/Resources.h"
#include "document/Document.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

// Read by the sanitizers' runtimes at start, before main: the same options whoever starts the
// test. Without sanitizers nothing calls them.
extern "C" {
const char* __lsan_default_suppressions() {
    return SELVORA_LSAN_SUPPRESSIONS;
}
const char* __lsan_default_options() {
    return "print_suppressions=0";
}
const char* __ubsan_default_options() {
    return "halt_on_error=1:print_stacktrace=1";
}
const char* __asan_default_options() {
    return "detect_leaks=1";
}
}

namespace selvora {
namespace test {

TestEnvironment::TestEnvironment() {
    const QByteArray path = home_.path().toUtf8();
    qputenv("HOME", path);
    qputenv("XDG_CONFIG_HOME", path + "/.config");
    qputenv("XDG_DATA_HOME", path + "/.local/share");
    qputenv("XDG_CACHE_HOME", path + "/.cache");
    // A test started by hand gets what CTest gives it: no GL driver for the leak checker to
    // find unloaded at exit.
    if (qEnvironmentVariableIsEmpty("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
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
