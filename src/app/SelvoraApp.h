#ifndef SELVORA_APP_SELVORAAPP_H
#define SELVORA_APP_SELVORAAPP_H

#include <QApplication>
#include <QString>

namespace selvora {

class MainWindow;

// The application class for desktops that hand a file to the running program through a
// QFileOpenEvent. On Linux the program starts from main with a plain QApplication instead.
class SelvoraApp : public QApplication {
    Q_OBJECT
public:
    SelvoraApp(int& argc, char** argv);

    static int exec();
    void applyCSS();
    MainWindow* getMainWindow() const { return mainWindow_; }

public slots:
    void appRunning();

protected:
    bool event(QEvent* event) override;

private:
    MainWindow* mainWindow_ = nullptr;
    QString path_;
};

} // namespace selvora

#endif
