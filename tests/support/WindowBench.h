#ifndef SELVORA_TESTS_WINDOWBENCH_H
#define SELVORA_TESTS_WINDOWBENCH_H

#include <QList>
#include <QPointer>
#include <QString>
#include <QWidget>

namespace selvora {
class MainWindow;
namespace document {
class Document;
}
namespace spatialview {
class SpatialView;
}

namespace test {

// The real main window for a GUI test, shown on the reference screen and made the active
// window (there is no window manager to do it under Xvfb). Its panels are reached by type.
// On destruction the project is marked unmodified, so that closing asks nothing.
class WindowBench {
public:
    // A null file name opens no project, as on the command line.
    explicit WindowBench(const QString& fileName = QString());
    ~WindowBench();
    WindowBench(const WindowBench&) = delete;
    WindowBench& operator=(const WindowBench&) = delete;

    MainWindow* window() const;
    document::Document* document() const;
    // The canvas of the current scene.
    spatialview::SpatialView* canvas() const;

    // The first (or every) widget or object of that type inside the window.
    template <typename T> T* panel() const { return windowWidget()->findChild<T*>(); }
    template <typename T> QList<T*> panels() const { return windowWidget()->findChildren<T*>(); }

    // Types the text into the widget, or into the one that has the focus.
    static void type(const QString& text, QWidget* target = nullptr);
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    QWidget* target = nullptr);
    // The widget that has the keyboard focus, active window or not.
    static QWidget* focused();

private:
    QWidget* windowWidget() const;

    QPointer<MainWindow> window_;
};

} // namespace test
} // namespace selvora

#endif
