#include "app/StyleSheet.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>

namespace selvora {

QString fallbackStyleSheet() {
    return QStringLiteral("QToolTip { color: rgb(255,127,0,255); background-color: #ffffff; "
                          "border: 1px solid rgb(255,127,0,255); font: rgb(255,127,0,255);}");
}

bool applyStyleSheetFile(QApplication* application, const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        application->setStyleSheet(fallbackStyleSheet());
        return false;
    }
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    application->setStyleSheet(stream.readAll());
    file.close();
    return true;
}

void applyCSS(QApplication* application) {
    applyStyleSheetFile(application, QApplication::applicationDirPath() + "/QSS/selvora.css");
}

} // namespace selvora
