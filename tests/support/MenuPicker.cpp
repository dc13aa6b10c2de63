#include "support/MenuPicker.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QtTest>

namespace selvora {
namespace test {

MenuPicker::MenuPicker(QObject* parent) : QObject(parent) {
    timer_.setInterval(20);
    connect(&timer_, &QTimer::timeout, this, &MenuPicker::poll);
}

QString MenuPicker::plain(QString text) {
    // "&Salvar\tCtrl+S": no mnemonic, no shortcut text.
    return text.remove('&').section('\t', 0, 0);
}

void MenuPicker::choose(const QStringList& path) {
    path_ = path;
    armed_ = path.isEmpty() ? Armed::dismiss : Armed::choose;
    chosen_ = false;
    last_ = nullptr;
    timer_.start();
}

void MenuPicker::dismiss() {
    choose({});
}

bool MenuPicker::waitDone(int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < timeoutMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return done();
}

QAction* MenuPicker::findAction(const QWidget* root, const QString& text) {
    const auto actions = root->findChildren<QAction*>();
    for (QAction* action : actions) {
        if (!action->isSeparator() && plain(action->text()) == plain(text))
            return action;
    }
    return nullptr;
}

void MenuPicker::poll() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu || menu == last_ || !menu->isVisible())
        return;
    last_ = menu;

    Seen seen;
    const auto actions = menu->actions();
    for (QAction* action : actions) {
        if (action->isSeparator() || !action->isVisible())
            continue;
        seen.texts << plain(action->text());
        seen.enabled.insert(plain(action->text()), action->isEnabled());
    }
    seen_.append(seen);

    QAction* pick = nullptr;
    if (armed_ == Armed::choose) {
        const QString wanted = plain(path_.takeFirst());
        for (QAction* action : actions) {
            if (!action->isSeparator() && action->isVisible() && action->isEnabled() &&
                plain(action->text()) == wanted)
                pick = action;
        }
    }
    if (!pick) {
        if (armed_ == Armed::choose)
            qWarning("MenuPicker: no enabled action in the menu for the path");
        // Escape closes the whole chain of menus.
        while (auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
            open->close();
        armed_ = Armed::no;
        timer_.stop();
        return;
    }
    menu->setActiveAction(pick);
    QTest::keyClick(menu, Qt::Key_Return);
    if (!pick->menu() || path_.isEmpty()) {
        chosen_ = path_.isEmpty() && !pick->menu();
        armed_ = Armed::no;
        timer_.stop();
    }
}

} // namespace test
} // namespace selvora
