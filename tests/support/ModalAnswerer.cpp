#include "support/ModalAnswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

namespace selvora {
namespace test {

namespace {
QString plain(QString text) {
    return text.remove('&');
}
} // namespace

ModalAnswerer::ModalAnswerer(QObject* parent) : QObject(parent) {
    timer_.setInterval(20);
    connect(&timer_, &QTimer::timeout, this, &ModalAnswerer::poll);
    timer_.start();
}

ModalAnswerer::~ModalAnswerer() = default;

void ModalAnswerer::answer(const QString& buttonText) {
    answers_.enqueue([buttonText](QWidget* widget) {
        return pressButton(widget, buttonText) ? buttonText : QString();
    });
}

void ModalAnswerer::answerFileDialog(const QString& path) {
    answers_.enqueue([path](QWidget* widget) {
        auto* dialog = qobject_cast<QFileDialog*>(widget);
        if (!dialog)
            return QString();
        // Typed into the name box, as a user does. QFileDialog::selectFile is no stand-in: for a
        // path under something that is not a folder it moves the dialog into that path only
        // when its file model happens to know it, and otherwise drops the leading slash and
        // returns the path glued onto the folder it was showing.
        auto* edit = dialog->findChild<QLineEdit*>("fileNameEdit");
        if (!edit)
            return QString();
        edit->setText(path);
        QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        return path;
    });
}

void ModalAnswerer::reject() {
    answers_.enqueue([](QWidget* widget) {
        if (auto* dialog = qobject_cast<QDialog*>(widget))
            QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
        else
            widget->close();
        return QStringLiteral("reject");
    });
}

void ModalAnswerer::answerWith(const std::function<void(QWidget*)>& action) {
    answers_.enqueue([action](QWidget* widget) {
        action(widget);
        return QStringLiteral("custom");
    });
}

bool ModalAnswerer::pressButton(QWidget* widget, const QString& text) {
    const auto buttons = widget->findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        if (plain(button->text()) == plain(text) && button->isVisible() && button->isEnabled()) {
            QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
            return true;
        }
    }
    return false;
}

QString ModalAnswerer::describeText(QWidget* widget) {
    if (auto* box = qobject_cast<QMessageBox*>(widget))
        return box->text();
    QStringList texts;
    const auto labels = widget->findChildren<QLabel*>();
    for (QLabel* label : labels) {
        if (!label->text().isEmpty())
            texts << label->text();
    }
    return texts.join('\n');
}

void ModalAnswerer::poll() {
    QWidget* widget = QApplication::activeModalWidget();
    if (!widget) {
        // A modal box may not be active yet on a busy display; look for a visible one.
        const auto tops = QApplication::topLevelWidgets();
        for (QWidget* top : tops) {
            if (top->isVisible() && top->isModal() && qobject_cast<QDialog*>(top)) {
                widget = top;
                break;
            }
        }
    }
    if (!widget)
        return;
    for (const QPointer<QWidget>& done : handled_) {
        if (done == widget)
            return; // already answered, waiting for it to close
    }
    handled_.append(widget);
    // Answered: skipped until it hides (a kept dialog may be shown again) or goes.
    widget->installEventFilter(this);
    connect(widget, &QWidget::destroyed, this,
            [this]() { handled_.removeAll(QPointer<QWidget>()); });

    Seen seen;
    seen.className = QString::fromLatin1(widget->metaObject()->className());
    seen.title = widget->windowTitle();
    seen.text = describeText(widget);
    if (answers_.isEmpty()) {
        seen.unexpected = true;
        qWarning("ModalAnswerer: unexpected box '%s': %s", qPrintable(seen.title),
                 qPrintable(seen.text));
        if (auto* dialog = qobject_cast<QDialog*>(widget))
            QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
        else
            widget->close();
    } else {
        seen.pressed = answers_.dequeue()(widget);
        if (seen.pressed.isEmpty()) {
            // The answer did not fit this box: close it rather than hang the test.
            seen.unexpected = true;
            qWarning("ModalAnswerer: no such button on '%s'", qPrintable(seen.title));
            if (auto* dialog = qobject_cast<QDialog*>(widget))
                QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
            else
                widget->close();
        }
    }
    seen_.append(seen);
}

bool ModalAnswerer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        watched->removeEventFilter(this);
        handled_.removeAll(QPointer<QWidget>(static_cast<QWidget*>(watched)));
    }
    return QObject::eventFilter(watched, event);
}

bool ModalAnswerer::waitAllAnswered(int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (!answers_.isEmpty() && clock.elapsed() < timeoutMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return answers_.isEmpty();
}

} // namespace test
} // namespace selvora
