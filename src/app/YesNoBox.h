#ifndef SELVORA_APP_YESNOBOX_H
#define SELVORA_APP_YESNOBOX_H

#include <QMessageBox>
#include <QString>

namespace selvora {

// A question with the buttons "Sim" and "Não", as every question of the program asks it.
class YesNoBox {
public:
    // True when the user answers "Sim".
    static bool ask(QMessageBox::Icon icon, const QString& title, const QString& text,
                    QWidget* parent = nullptr,
                    Qt::WindowFlags flags = Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint,
                    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);
    // The question before a media leaves the scene or the library.
    static bool askRemoveMedia(const QString& label);
};

} // namespace selvora

#endif
