#include "app/TwoStageToolTip.h"

#include <QApplication>
#include <QCursor>
#include <QIcon>
#include <QPushButton>
#include <QRect>
#include <QTimer>
#include <QToolTip>
#include <QWidget>

namespace selvora {

TwoStageToolTip::TwoStageToolTip(QObject* parent, const Settings& settings)
    : QObject(parent), settings_(settings), timer_(new QTimer(this)) {
    timer_->setSingleShot(true);
    timer_->setInterval(settings_.delayMs);
    connect(timer_, &QTimer::timeout, this, &TwoStageToolTip::showLongTip);
}

void TwoStageToolTip::addTip(QObject* source, const QString& shortTip, const QString& longTip) {
    if (source)
        tips_.append({source, shortTip, longTip});
}

bool TwoStageToolTip::showAt(const QPoint& globalPoint, const QWidget* scope) {
    for (const Tip& tip : tips_) {
        auto* control = qobject_cast<QWidget*>(tip.source.data());
        if (!control || (scope && !scope->isAncestorOf(control)))
            continue;
        // QRect's right and bottom are inclusive, so one more pixel takes both edges.
        const QRect box(control->mapToGlobal(QPoint(0, 0)), settings_.box + QSize(1, 1));
        if (box.contains(globalPoint)) {
            current_ = control;
            resting_ = false;
            showShortTip();
            timer_->start();
            return true;
        }
    }
    return false;
}

bool TwoStageToolTip::showAtPointer(const QWidget* scope) {
    return showAt(QCursor::pos() + QPoint(10, 10), scope);
}

void TwoStageToolTip::rest(QObject* source) {
    QWidget* window = QApplication::activeWindow();
    if (!window)
        return;
    window_ = window;
    current_ = source;
    resting_ = true;
    restPoint_ = QCursor::pos();
    timer_->start();
}

const TwoStageToolTip::Tip* TwoStageToolTip::find(const QObject* source) const {
    for (const Tip& tip : tips_) {
        if (source && tip.source == source)
            return &tip;
    }
    return nullptr;
}

QString TwoStageToolTip::shortTip(const QObject* source) const {
    const Tip* tip = find(source);
    return tip ? tip->shortTip : QString();
}

QString TwoStageToolTip::longTip(const QObject* source) const {
    const Tip* tip = find(source);
    return tip ? tip->longTip : QString();
}

void TwoStageToolTip::show(const QString& text) const {
    if (auto* control = qobject_cast<QWidget*>(current_.data()))
        QToolTip::showText(control->mapToGlobal(QPoint(0, 0)), text);
}

bool TwoStageToolTip::nearRest(const QPoint& point) const {
    return qAbs(point.x() - restPoint_.x()) <= settings_.slack.width() &&
           qAbs(point.y() - restPoint_.y()) <= settings_.slack.height();
}

void TwoStageToolTip::showShortTip() {
    show(shortTip(current_));
}

void TwoStageToolTip::showLongTip() {
    if (!resting_) {
        show(longTip(current_));
        return;
    }
    if (!window_ || QApplication::activeWindow() != window_)
        return;
    const QPoint point = QCursor::pos();
    if (!nearRest(point) || !find(current_))
        return;
    QToolTip::showText(point, longTip(current_));
    timer_->start(); // renewed while the pointer stays near
}

QPushButton* TwoStageToolTip::addButton(QWidget* parent, const char* context,
                                        const Button& button) {
    auto* made = new QPushButton(QIcon(button.icon), QString(), parent);
    made->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    addTip(made, QCoreApplication::translate(context, button.shortTip),
           QCoreApplication::translate(context, button.longTip));
    return made;
}

} // namespace selvora
