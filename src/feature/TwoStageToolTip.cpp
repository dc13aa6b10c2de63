#include "feature/TwoStageToolTip.h"

#include <QRect>
#include <QTimer>
#include <QToolTip>
#include <QWidget>

namespace selvora {
namespace feature {

TwoStageToolTip::TwoStageToolTip(QObject* parent, int delayMs)
    : QObject(parent), timer_(new QTimer(this)) {
    timer_->setSingleShot(true);
    timer_->setInterval(delayMs);
    connect(timer_, &QTimer::timeout, this, &TwoStageToolTip::showLongTip);
}

void TwoStageToolTip::addTip(QWidget* control, const QString& shortTip, const QString& longTip) {
    if (control)
        tips_.append({control, shortTip, longTip});
}

bool TwoStageToolTip::showAt(const QPoint& globalPoint, const QWidget* scope) {
    for (const Tip& tip : tips_) {
        QWidget* control = tip.control;
        if (!control || (scope && !scope->isAncestorOf(control)))
            continue;
        // QRect's right and bottom are inclusive, so a box of kBox + 1 takes both edges.
        const QRect box(control->mapToGlobal(QPoint(0, 0)), QSize(kBox + 1, kBox + 1));
        if (box.contains(globalPoint)) {
            current_ = control;
            showShortTip();
            timer_->start();
            return true;
        }
    }
    return false;
}

QWidget* TwoStageToolTip::currentControl() const {
    return current_;
}

const TwoStageToolTip::Tip* TwoStageToolTip::find(const QWidget* control) const {
    for (const Tip& tip : tips_) {
        if (control && tip.control == control)
            return &tip;
    }
    return nullptr;
}

QString TwoStageToolTip::shortTip(const QWidget* control) const {
    const Tip* tip = find(control);
    return tip ? tip->shortTip : QString();
}

QString TwoStageToolTip::longTip(const QWidget* control) const {
    const Tip* tip = find(control);
    return tip ? tip->longTip : QString();
}

void TwoStageToolTip::show(const QString& text) const {
    if (current_)
        QToolTip::showText(current_->mapToGlobal(QPoint(0, 0)), text);
}

void TwoStageToolTip::showShortTip() {
    show(shortTip(current_));
}

void TwoStageToolTip::showLongTip() {
    show(longTip(current_));
}

} // namespace feature
} // namespace selvora
