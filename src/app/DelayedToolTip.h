#ifndef SELVORA_APP_DELAYEDTOOLTIP_H
#define SELVORA_APP_DELAYEDTOOLTIP_H

#include <QHash>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QString>

class QTimer;
class QWidget;

namespace selvora {

// The long tool-tips: the short tip shows at once, as Qt shows any tip; when the pointer rests
// on a known object, its rich tip comes after a delay and is renewed while the pointer stays
// near the point of rest and the window stays active.
class DelayedToolTip : public QObject {
    Q_OBJECT
public:
    static constexpr int kDelay = 2000;
    static constexpr int kSlackX = 60;
    static constexpr int kSlackY = 30;

    explicit DelayedToolTip(QObject* parent);

    void setText(const QObject* source, const QString& richText);
    QString text(const QObject* source) const { return texts_.value(source); }

public slots:
    // The pointer came to rest on the source.
    void rest(QObject* source);
    // The delay is over: show the rich tip, if the pointer stayed.
    void update();

private:
    QTimer* timer_;
    QPointer<QWidget> window_;
    QPoint point_;
    QPointer<QObject> source_;
    QHash<const QObject*, QString> texts_;
};

} // namespace selvora

#endif
