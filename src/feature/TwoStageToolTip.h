#ifndef SELVORA_FEATURE_TWOSTAGETOOLTIP_H
#define SELVORA_FEATURE_TWOSTAGETOOLTIP_H

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QString>

class QTimer;
class QWidget;

namespace selvora {
namespace feature {

// The two-stage tool-tip of the side panels (properties, scene list, library): a short tip at
// once for the control near the pointer, then a rich-text tip after a delay. The owner hands over
// its QEvent::ToolTip; Qt's own tips would show one text only, and at once.
class TwoStageToolTip : public QObject {
    Q_OBJECT
public:
    // A control is hit when the point lies in this box from its global top-left, edges included.
    static constexpr int kBox = 30;
    static constexpr int kDelayMs = 1500;

    explicit TwoStageToolTip(QObject* parent, int delayMs = kDelayMs);

    // An empty short tip shows nothing at once and only the long tip later.
    void addTip(QWidget* control, const QString& shortTip, const QString& longTip);

    // Finds the control at the point among those inside the scope (all when it is null), shows
    // its short tip and starts the delay. False when no control is there.
    bool showAt(const QPoint& globalPoint, const QWidget* scope = nullptr);

    QWidget* currentControl() const;
    QString shortTip(const QWidget* control) const;
    QString longTip(const QWidget* control) const;
    QTimer* timer() const { return timer_; }

public slots:
    void showShortTip();
    void showLongTip();

private:
    struct Tip {
        QPointer<QWidget> control;
        QString shortTip;
        QString longTip;
    };
    const Tip* find(const QWidget* control) const;
    void show(const QString& text) const;

    QList<Tip> tips_;
    QPointer<QWidget> current_;
    QTimer* timer_;
};

} // namespace feature
} // namespace selvora

#endif
