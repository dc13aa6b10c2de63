#ifndef SELVORA_DOCUMENT_NUMBERFORM_H
#define SELVORA_DOCUMENT_NUMBERFORM_H

#include <QChar>
#include <QString>

#include <cmath>

namespace selvora {
namespace document {

// How geometry is written in the model and in project files: six significant digits, then cut
// to five characters with no rounding (33.3333 -> 33.33, 16.6667 -> 16.66, 1.5e-05 -> 1.5e-).
// Two syncs made from the same media compare equal as text thanks to this cut.
class NumberForm {
public:
    static QString of(double value) {
        QString text = QString::number(value, 'g', 6);
        text.remove(5, 20);
        return text;
    }

    // Percent of a view size.
    static QString percent(double px, double view) { return of(px / view * 100); }

    // The old single-character form of a left value: the low byte of its integer part.
    static QString lowByteChar(const QString& value) {
        const double number = value.toDouble();
        const long long whole =
            std::isfinite(number) && std::fabs(number) < 1e15 ? static_cast<long long>(number) : 0;
        return QString(QChar(static_cast<ushort>(whole & 0xff)));
    }
};

} // namespace document
} // namespace selvora

#endif
