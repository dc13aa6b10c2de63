#ifndef SELVORA_TESTS_MODALANSWERER_H
#define SELVORA_TESTS_MODALANSWERER_H

#include <QList>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QString>
#include <QTimer>

#include <functional>

class QWidget;

namespace selvora {
namespace test {

// Answers the modal boxes and dialogs that the code under test opens, so that a test never
// hangs on one. Arm it before the call that opens a box: each box that appears takes the next
// queued answer, and its title and text are recorded. A box that finds no answer waiting is
// rejected and recorded as unexpected.
class ModalAnswerer : public QObject {
    Q_OBJECT
public:
    struct Seen {
        QString className;
        QString title;
        QString text; // QMessageBox::text(), or the texts of a dialog's labels joined by "\n"
        QString pressed;
        bool unexpected = false;
    };

    explicit ModalAnswerer(QObject* parent = nullptr);
    ~ModalAnswerer() override;

    // Press the button with this text ("Sim", "&Salvar", ...); the & of a mnemonic is optional.
    void answer(const QString& buttonText);
    // Type this path into a non-modal-native QFileDialog and accept it.
    void answerFileDialog(const QString& path);
    // Reject a QFileDialog or any dialog, as a user's cancel.
    void reject();
    // Do anything with the widget (fill a form, press a button).
    void answerWith(const std::function<void(QWidget*)>& action);

    const QList<Seen>& seen() const { return seen_; }
    Seen last() const { return seen_.isEmpty() ? Seen() : seen_.last(); }
    int pending() const { return answers_.size(); }

    // Spins the event loop until every queued answer was used, or the time is out.
    bool waitAllAnswered(int timeoutMs = 5000);

    // Finds a button of the widget by its text, ignoring mnemonics.
    static bool pressButton(QWidget* widget, const QString& text);
    static QString describeText(QWidget* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void poll();

    QQueue<std::function<QString(QWidget*)>> answers_;
    QList<Seen> seen_;
    QList<QPointer<QWidget>> handled_;
    QTimer timer_;
};

} // namespace test
} // namespace selvora

#endif
