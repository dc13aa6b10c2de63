#include "support/WindowBench.h"

#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialView.h"

#include <QApplication>
#include <QtTest>

namespace selvora {
namespace test {

WindowBench::WindowBench(const QString& fileName) : window_(new MainWindow(fileName)) {
    if (!QTest::qWaitForWindowExposed(window_, 10000))
        qWarning("WindowBench: the main window was never exposed");
    QApplication::setActiveWindow(window_);
}

WindowBench::~WindowBench() {
    if (window_) {
        window_->getDocument()->setModified(false);
        delete window_;
    }
}

MainWindow* WindowBench::window() const {
    return window_;
}

document::Document* WindowBench::document() const {
    return window_->getDocument();
}

spatialview::SpatialView* WindowBench::canvas() const {
    auto* group = panel<spatialview::SpatialGroupView>();
    return group ? qobject_cast<spatialview::SpatialView*>(group->currentWidget()) : nullptr;
}

QWidget* WindowBench::windowWidget() const {
    return window_;
}

QWidget* WindowBench::focused() {
    if (QWidget* widget = QApplication::focusWidget())
        return widget;
    if (QWidget* active = QApplication::activeWindow())
        return active->focusWidget();
    return nullptr;
}

void WindowBench::type(const QString& text, QWidget* target) {
    if (!target)
        target = focused();
    if (!target) {
        qWarning("WindowBench: nothing has the focus to type '%s' into", qPrintable(text));
        return;
    }
    for (const QChar c : text) {
        // QTest knows the keys of ASCII only; other letters go as the text of an unknown key,
        // which is how an input method delivers them.
        if (c.unicode() < 128)
            QTest::keyClick(target, char(c.unicode()));
        else
            QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

void WindowBench::key(Qt::Key key, Qt::KeyboardModifiers modifiers, QWidget* target) {
    if (!target)
        target = focused();
    if (target)
        QTest::keyClick(target, key, modifiers);
}

} // namespace test
} // namespace selvora
