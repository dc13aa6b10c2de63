#ifndef SELVORA_APP_TIMETEXT_H
#define SELVORA_APP_TIMETEXT_H

#include <QString>
#include <QStringList>

namespace selvora {

// The "hh:mm:ss" text of the time fields (time strip, scene list, properties), both ways.
class TimeText {
public:
    // The most that a "00:00:00" field can show.
    static constexpr int kMaxSeconds = 99 * 3600 + 59 * 60 + 59;

    static QString timeString(int seconds);

    // Empty parts are skipped and a missing part counts as 0; a masked field can not hold more
    // than two digits a part, so the sum stays small.
    static int timeSeconds(const QStringList& parts);

    static int fromText(const QString& text) { return timeSeconds(text.split(':')); }
};

} // namespace selvora

#endif
