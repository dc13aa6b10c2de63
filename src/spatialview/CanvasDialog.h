#ifndef SELVORA_SPATIALVIEW_CANVASDIALOG_H
#define SELVORA_SPATIALVIEW_CANVASDIALOG_H

#include <QDialog>
#include <QMessageBox>
#include <QString>

class QBoxLayout;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace selvora {
namespace document {
class Document;
}

namespace spatialview {

// Base of the small dialogs of the canvas menu: always on top, of a fixed size, built anew for
// each use, closed by "&Cancelar" and confirmed by "&Salvar"; a refused input is answered by a
// box over the dialog, which stays open.
class CanvasDialog : public QDialog {
    Q_OBJECT
public:
    CanvasDialog(QWidget* parent, const QString& title, const QSize& size);

protected:
    // A stretch, then "&Cancelar" and "&Salvar" at the right; Cancelar closes.
    void addButtons(QBoxLayout* layout);
    QPushButton* saveButton() const { return save_; }

    // A time field of "hh:mm:ss" under its input mask.
    QLineEdit* timeEdit(int seconds);
    static int seconds(const QLineEdit* edit);
    static QString timeText(int seconds);
    // An empty entry (-1), then the scenes in their order by label, the id as item data.
    QComboBox* sceneChoices(const document::Document* document);

    // A box over this dialog with one button; returns when it is closed.
    void tell(QMessageBox::Icon icon, const QString& title, const QString& text);

private:
    QPushButton* save_ = nullptr;
};

} // namespace spatialview
} // namespace selvora

#endif
