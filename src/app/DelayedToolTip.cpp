#include "app/DelayedToolTip.h"

#include <QApplication>
#include <QCursor>
#include <QTimer>
#include <QToolTip>
#include <QWidget>

namespace selvora {

DelayedToolTip::DelayedToolTip(QObject* parent) : QObject(parent), timer_(new QTimer(this)) {
    timer_->setSingleShot(true);
    timer_->setInterval(kDelay);
    connect(timer_, &QTimer::timeout, this, &DelayedToolTip::update, Qt::UniqueConnection);
}

void DelayedToolTip::setText(const QObject* source, const QString& richText) {
    texts_.insert(source, richText);
}

void DelayedToolTip::rest(QObject* source) {
    QWidget* window = QApplication::activeWindow();
    if (!window)
        return;
    window_ = window;
    source_ = source;
    point_ = QCursor::pos();
    timer_->start();
}

void DelayedToolTip::update() {
    if (!window_ || QApplication::activeWindow() != window_)
        return;
    const QPoint point = QCursor::pos();
    if (qAbs(point.x() - point_.x()) > kSlackX || qAbs(point.y() - point_.y()) > kSlackY)
        return;
    if (!source_ || !texts_.contains(source_))
        return;
    QToolTip::showText(point, texts_.value(source_));
    timer_->start(); // renewed while the pointer stays near
}

} // namespace selvora
