#include "app/SelvoraApp.h"

#include "app/MainWindow.h"
#include "app/OrganisationInfo.h"
#include "app/StyleSheet.h"

#include <QFileOpenEvent>
#include <QMessageBox>

namespace selvora {

SelvoraApp::SelvoraApp(int& argc, char** argv) : QApplication(argc, argv) {
    setOrganizationName("KOLM");
    setOrganizationDomain(OrganisationInfo::domain());
    setApplicationDisplayName("Selvora");
    setApplicationName("Selvora");
    setApplicationVersion(OrganisationInfo::version());
    applyCSS();
    if (argc >= 2 && argv[1])
        mainWindow_ = new MainWindow(QString::fromLocal8Bit(argv[1]));
    else
        mainWindow_ = new MainWindow(QString());
}

int SelvoraApp::exec() {
    return QApplication::exec();
}

void SelvoraApp::applyCSS() {
    applyStyleSheetFile(this, ":/css/main");
}

bool SelvoraApp::event(QEvent* event) {
    if (event->type() == QEvent::FileOpen) {
        path_ = static_cast<QFileOpenEvent*>(event)->file();
        QMessageBox box;
        box.setText("Selvora app - path_: " + path_);
        box.show();
        mainWindow_->openFileMacx(path_);
        return true;
    }
    return QApplication::event(event);
}

void SelvoraApp::appRunning() {
    if (!path_.isEmpty())
        mainWindow_->openFileMacx(path_);
}

} // namespace selvora
