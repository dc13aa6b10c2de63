// Start-up: the time from starting the process to the main window shown and idle, against a
// bare QMainWindow started and shown the same way, so that the figure says what the program's
// own start-up costs beyond Qt's. Each kind runs as a child process of this one, in turns; the
// parent times each from QProcess::start to the child's "ready" line and reports the medians.
//
// Run it on the display the program uses, e.g.
//     xvfb-run -a -s "-screen 0 1600x900x24" build/bench/bench_startup
#include "app/MainWindow.h"
#include "app/OrganisationInfo.h"
#include "app/Resources.h"
#include "app/StyleSheet.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QMainWindow>
#include <QProcess>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

const char kChild[] = "--child";

// Says "ready" once the window is exposed and the event loop has nothing left to do.
class ReadyWhenIdle : public QObject {
public:
    explicit ReadyWhenIdle(QWidget* window) : window_(window) {
        window_->windowHandle()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Expose && window_->windowHandle()->isExposed()) {
            watched->removeEventFilter(this);
            // A zero timer runs when the queue of posted events is empty.
            QTimer::singleShot(0, [] {
                std::printf("ready\n");
                std::fflush(stdout);
                QCoreApplication::quit();
            });
        }
        return false;
    }

private:
    QWidget* window_;
};

int runChild(int argc, char** argv, const QByteArray& kind) {
    QApplication application(argc, argv);
    QWidget* window = nullptr;
    if (kind == "selvora") {
        // What main does.
        selvora::initResources();
        QCoreApplication::setOrganizationName(selvora::OrganisationInfo::name());
        QCoreApplication::setOrganizationDomain(selvora::OrganisationInfo::domain());
        QGuiApplication::setApplicationDisplayName(QString::fromUtf8("Selvorá"));
        selvora::applyCSS(&application);
        window = new selvora::MainWindow(QString());
    } else {
        auto* bare = new QMainWindow();
        bare->showMaximized();
        window = bare;
    }
    ReadyWhenIdle ready(window);
    QApplication::exec();
    // Tear-down is not measured; leave it to the system.
    std::fflush(stdout);
    std::_Exit(0);
}

// Milliseconds from starting the child to its "ready" line, or -1.
double timeChild(const QString& program, const QString& kind) {
    QProcess child;
    child.setStandardErrorFile(QProcess::nullDevice());
    QElapsedTimer timer;
    timer.start();
    child.start(program, {QString::fromLatin1(kChild), kind});
    while (child.waitForReadyRead(30000)) {
        if (child.readAll().contains("ready")) {
            const double ms = timer.nsecsElapsed() / 1e6;
            child.waitForFinished(30000);
            return ms;
        }
    }
    child.kill();
    child.waitForFinished();
    return -1;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && qstrcmp(argv[1], kChild) == 0)
        return runChild(argc, argv, argv[2]);
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Not the user's settings, and no GL driver loaded for nothing.
    qputenv("QT_XCB_GL_INTEGRATION", "none");
    QCoreApplication application(argc, argv);
    const QString program = QCoreApplication::applicationFilePath();

    const int runs = 7;
    std::vector<double> selvora;
    std::vector<double> bare;
    timeChild(program, "bare"); // warms the caches of the libraries both share
    for (int i = 0; i < runs; ++i) {
        bare.push_back(timeChild(program, "bare"));
        selvora.push_back(timeChild(program, "selvora"));
    }
    if (std::min(*std::min_element(bare.begin(), bare.end()),
                 *std::min_element(selvora.begin(), selvora.end())) < 0) {
        std::printf("a child never said it was ready\n");
        return 1;
    }
    const double selvoraMs = median(selvora);
    const double bareMs = median(bare);
    std::printf("runs: %d of each, medians\n", runs);
    std::printf("bare QMainWindow shown and idle: %.1f ms\n", bareMs);
    std::printf("Selvora main window shown and idle: %.1f ms\n", selvoraMs);
    std::printf("ratio: %.2f (target under 1.5)\n", selvoraMs / bareMs);
    return 0;
}
