#ifndef SELVORA_SLIDEVIEW_TIMETEXT_H
#define SELVORA_SLIDEVIEW_TIMETEXT_H

#include <QString>
#include <QStringList>

namespace selvora {
namespace slideView {

// The "hh:mm:ss" text of the link fields of the scene list, both ways.
class TimeText {
public:
    static QString timeString(int seconds) {
        return QString("%1:%2:%3")
            .arg(seconds / 3600, 2, 10, QChar('0'))
            .arg(seconds % 3600 / 60, 2, 10, QChar('0'))
            .arg(seconds % 60, 2, 10, QChar('0'));
    }

    // Empty parts are skipped and a missing part counts as 0; a masked field can not hold more
    // than two digits a part, so the sum stays small.
    static int timeSeconds(const QStringList& parts) {
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

    static int fromText(const QString& text) { return timeSeconds(text.split(':')); }
};

} // namespace slideView
} // namespace selvora

#endif
