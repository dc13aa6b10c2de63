#include "app/TimeText.h"

#include <QChar>

namespace selvora {

QString TimeText::timeString(int seconds) {
    return QString("%1:%2:%3")
        .arg(seconds / 3600, 2, 10, QChar('0'))
        .arg(seconds % 3600 / 60, 2, 10, QChar('0'))
        .arg(seconds % 60, 2, 10, QChar('0'));
}

int TimeText::timeSeconds(const QStringList& parts) {
    QStringList filled;
    for (const QString& part : parts) {
        if (!part.trimmed().isEmpty())
            filled.append(part.trimmed());
    }
    const int factors[] = {3600, 60, 1};
    int seconds = 0;
    for (int i = 0; i < 3 && i < filled.size(); ++i)
        seconds += qBound(0, filled.at(i).left(4).toInt(), 9999) * factors[i];
    return seconds;
}

} // namespace selvora
