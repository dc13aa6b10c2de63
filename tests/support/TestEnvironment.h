#ifndef SELVORA_TESTS_TESTENVIRONMENT_H
#define SELVORA_TESTS_TESTENVIRONMENT_H

#include <QTemporaryDir>

namespace selvora {
namespace test {

// Keeps a test away from the user's files: HOME and the XDG folders point into a temporary
// folder before the application exists, and QStandardPaths runs in test mode.
class TestEnvironment {
public:
    TestEnvironment();
    ~TestEnvironment();

    // Called once the QApplication exists: test mode, resources, organisation names.
    void start();

    QString home() const;

    // A fresh document with a new project, as the main window leaves it.
    static void newProject();

private:
    QTemporaryDir home_;
};

} // namespace test
} // namespace selvora

#endif
