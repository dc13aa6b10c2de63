#ifndef SELVORA_APP_TWOSTAGETOOLTIP_H
#define SELVORA_APP_TWOSTAGETOOLTIP_H

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QString>

class QPushButton;

class QTimer;
class QWidget;

namespace selvora {

// The two-stage tool-tip of menus and side panels: a short tip at once, then a rich-text tip
// after a delay; Qt's own tips would show one text only, and at once.
// - A panel hands over its QEvent::ToolTip (showAt): the control whose box holds the pointer
//   shows its short tip, and its long tip later, both at the control's top-left.
// - A menu tells where the pointer came to rest (rest): Qt shows the action's own short tip;
//   the long tip follows the pointer (see Settings::slack).
class TwoStageToolTip : public QObject {
    Q_OBJECT
public:
    struct Settings {
        int delayMs;
        // A control is hit when the point lies in this box from its global top-left, edges
        // included.
        QSize box;
        // For rest(): the long tip shows at the pointer only while the pointer stays within
        // this distance of its point of rest and the window active then stays active, and it
        // is renewed after each delay.
        QSize slack;
    };
    // The side panels'.
    static constexpr Settings kPanel = {1500, QSize(30, 30), QSize()};

    explicit TwoStageToolTip(QObject* parent, const Settings& settings = kPanel);

    // An empty short tip shows nothing at once and only the long tip later.
    void addTip(QObject* source, const QString& shortTip, const QString& longTip);

    // A side panel's button: its picture and its two tips, translated in the panel's context.
    struct Button {
        const char* icon;
        const char* shortTip;
        const char* longTip;
    };
    QPushButton* addButton(QWidget* parent, const char* context, const Button& button);

    // Finds the control at the point among those inside the scope (all when it is null), shows
    // its short tip and starts the delay. False when no control is there.
    bool showAt(const QPoint& globalPoint, const QWidget* scope = nullptr);
    // A panel's QEvent::ToolTip: showAt the pointer taken 10 pixels lower and to the right.
    bool showAtPointer(const QWidget* scope = nullptr);
    // The pointer came to rest on the source: starts the delay, while a window is active.
    void rest(QObject* source);

    QString shortTip(const QObject* source) const;
    QString longTip(const QObject* source) const;

public slots:
    void showShortTip();
    // The delay is over.
    void showLongTip();

private:
    struct Tip {
        QPointer<QObject> source;
        QString shortTip;
        QString longTip;
    };
    const Tip* find(const QObject* source) const;
    void show(const QString& text) const;
    bool nearRest(const QPoint& point) const;

    Settings settings_;
    QList<Tip> tips_;
    QPointer<QObject> current_;
    QTimer* timer_;
    bool resting_ = false;
    QPointer<QWidget> window_;
    QPoint restPoint_;
};

} // namespace selvora

#endif
