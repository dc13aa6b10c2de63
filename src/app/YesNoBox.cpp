#include "app/YesNoBox.h"

#include <QCoreApplication>
#include <QPushButton>

namespace selvora {

bool YesNoBox::ask(QMessageBox::Icon icon, const QString& title, const QString& text,
                   QWidget* parent, Qt::WindowFlags flags,
                   QMessageBox::StandardButton defaultButton) {
    QMessageBox box(icon, title, text, QMessageBox::Yes | QMessageBox::No, parent, flags);
    box.button(QMessageBox::Yes)->setText(QCoreApplication::translate("YesNoBox", "Sim"));
    box.button(QMessageBox::No)->setText(QCoreApplication::translate("YesNoBox", "Não"));
    if (defaultButton != QMessageBox::NoButton)
        box.setDefaultButton(defaultButton);
    return box.exec() == QMessageBox::Yes;
}

bool YesNoBox::askRemoveMedia(const QString& label) {
    return ask(QMessageBox::Question, QCoreApplication::translate("YesNoBox", "Remover Mídia"),
               QCoreApplication::translate("YesNoBox", "Deseja mesmo remover a Mídia \"%1\"?\n")
                   .arg(label));
}

} // namespace selvora
