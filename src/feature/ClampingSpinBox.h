#ifndef SELVORA_FEATURE_CLAMPINGSPINBOX_H
#define SELVORA_FEATURE_CLAMPINGSPINBOX_H

#include <QLocale>
#include <QString>
#include <QValidator>
#include <QtGlobal>

#include <type_traits>
#include <utility>

namespace selvora {
namespace feature {

// A spin box (QSpinBox or QDoubleSpinBox) that takes a number typed beyond its range as the
// nearest bound when the edit is committed. Qt's own boxes refuse the key instead, so that 150
// typed into a field of 0 to 100 would become 15. Text that is no number still falls back to the
// previous value.
template <typename SpinBox> class ClampingSpinBox : public SpinBox {
public:
    using SpinBox::SpinBox;
    using Value = std::decay_t<decltype(std::declval<SpinBox>().value())>;

    QValidator::State validate(QString& input, int& pos) const override {
        const QValidator::State state = SpinBox::validate(input, pos);
        if (state != QValidator::Invalid)
            return state;
        bool ok = false;
        const QString text = bare(input);
        this->locale().toDouble(text, &ok);
        return ok || text == QLatin1String("-") ? QValidator::Intermediate : QValidator::Invalid;
    }

    void fixup(QString& input) const override {
        bool ok = false;
        const double typed = this->locale().toDouble(bare(input), &ok);
        if (!ok) {
            SpinBox::fixup(input);
            return;
        }
        const double bounded = qBound(double(this->minimum()), typed, double(this->maximum()));
        const Value value =
            std::is_integral<Value>::value ? Value(qRound(bounded)) : Value(bounded);
        input = this->prefix() + this->textFromValue(value) + this->suffix();
    }

private:
    QString bare(QString text) const {
        if (!this->prefix().isEmpty() && text.startsWith(this->prefix()))
            text.remove(0, this->prefix().size());
        if (!this->suffix().isEmpty() && text.endsWith(this->suffix()))
            text.chop(this->suffix().size());
        return text.trimmed();
    }
};

} // namespace feature
} // namespace selvora

#endif
