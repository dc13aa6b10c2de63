#ifndef SELVORA_TESTS_MENUPICKER_H
#define SELVORA_TESTS_MENUPICKER_H

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

class QAction;
class QMenu;
class QWidget;

namespace selvora {
namespace test {

// Answers the next popup menu (a context menu run with exec(), a menu of the menu bar): arm it
// before the call that opens the menu. It picks an action by its text, walking into submenus on
// the way, as the keyboard does, so that exec() returns the action chosen. Every menu it sees
// is recorded with its actions' texts and enable states.
class MenuPicker : public QObject {
    Q_OBJECT
public:
    struct Seen {
        QStringList texts; // without mnemonics; separators left out
        QHash<QString, bool> enabled;
    };

    explicit MenuPicker(QObject* parent = nullptr);

    // The path of texts from the menu that opens to the action ("Forma", "Retângulo"); the & of
    // a mnemonic is optional.
    void choose(const QStringList& path);
    // Closes the next menu choosing nothing (it is still recorded).
    void dismiss();

    // Spins the event loop until the menu was answered, or the time is out.
    bool waitDone(int timeoutMs = 5000);
    bool done() const { return armed_ == Armed::no; }
    // False when a text of the path was missing or its action disabled.
    bool chosen() const { return chosen_; }
    const QList<Seen>& seen() const { return seen_; }

    // An action under that widget (menus included) with that text, or null.
    static QAction* findAction(const QWidget* root, const QString& text);
    static QString plain(QString text);

private:
    enum class Armed { no, choose, dismiss };
    void poll();

    QTimer timer_;
    Armed armed_ = Armed::no;
    QStringList path_;
    QMenu* last_ = nullptr;
    bool chosen_ = false;
    QList<Seen> seen_;
};

} // namespace test
} // namespace selvora

#endif
