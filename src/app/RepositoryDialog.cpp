#include "app/RepositoryDialog.h"

#include "app/YesNoBox.h"
#include "document/Document.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace selvora {
namespace menu {

RepositoryDialog::RepositoryDialog(document::Document* document, QWidget* parent)
    : QDialog(parent, Qt::WindowStaysOnTopHint), document_(document), edit_(new QLineEdit(this)) {
    setFocusPolicy(Qt::WheelFocus);
    setWindowTitle(tr("Configuração do Repositório"));
    setFixedSize(500, 100);

    auto* address = new QHBoxLayout();
    address->addWidget(new QLabel(tr("URL:"), this));
    address->addWidget(edit_);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    auto* cancel = new QPushButton(tr("&Cancelar"), this);
    auto* save = new QPushButton(tr("&Salvar"), this);
    buttons->addWidget(cancel);
    buttons->addWidget(save);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(address);
    layout->addLayout(buttons);

    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(save, &QPushButton::clicked, this, &RepositoryDialog::saveRepository);
}

void RepositoryDialog::saveRepository() {
    const QString url = edit_->text();
    if (url.isEmpty()) {
        QMessageBox::warning(this, tr("Configuração do Repositório"),
                             tr("<h2>Alerta.</h2><p>Por favor, preencha corretamente o endereço "
                                "do repositório."));
        return;
    }
    close();
    document_->setUrlRepository(url);
    if (YesNoBox::ask(
            QMessageBox::Question, tr("Publicar"),
            tr("Deseja publicar o projeto \"%1\" agora?\n").arg(document_->getProjectName())))
        emit publishRequested();
}

} // namespace menu
} // namespace selvora
