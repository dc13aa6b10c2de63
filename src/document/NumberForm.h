#ifndef SELVORA_DOCUMENT_NUMBERFORM_H
#define SELVORA_DOCUMENT_NUMBERFORM_H

#include <QChar>
#include <QHash>
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

    // The four geometry keys of a property hash, from percent to pixels in the number form, or
    // from pixels to percent at full precision (the number form is applied when it is stored).
    static QHash<QString, QString> toPixels(QHash<QString, QString> properties, double viewWidth,
                                            double viewHeight) {
        return convert(properties, viewWidth, viewHeight, true);
    }
    static QHash<QString, QString> toPercent(QHash<QString, QString> properties, double viewWidth,
                                             double viewHeight) {
        return convert(properties, viewWidth, viewHeight, false);
    }

    // The old single-character form of a left value: the low byte of its integer part.
    static QString lowByteChar(const QString& value) {
        const double number = value.toDouble();
        const long long whole =
            std::isfinite(number) && std::fabs(number) < 1e15 ? static_cast<long long>(number) : 0;
        return QString(QChar(static_cast<ushort>(whole & 0xff)));
    }

private:
    static QHash<QString, QString> convert(QHash<QString, QString>& properties, double viewWidth,
                                           double viewHeight, bool toPixels) {
        const struct {
            const char* key;
            double view;
        } geometry[] = {
            {"left", viewWidth}, {"top", viewHeight}, {"width", viewWidth}, {"height", viewHeight}};
        for (const auto& item : geometry) {
            auto it = properties.find(QLatin1String(item.key));
            if (it == properties.end())
                continue;
            const double value = it.value().toDouble();
            it.value() = toPixels ? of(value * item.view / 100)
                                  : QString::number(value / item.view * 100, 'g', 17);
        }
        return properties;
    }
};

} // namespace document
} // namespace selvora

#endif
