#include "app/ContactForm.h"

#include "project/ServiceAddresses.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace selvora {
namespace menu {

ContactForm::ContactForm(QWidget* window, QObject* parent)
    : QObject(parent), window_(window), contactManager_(new QNetworkAccessManager(this)) {
    connect(contactManager_, &QNetworkAccessManager::finished, this,
            &ContactForm::finishRequestContactForm);
}

void ContactForm::openContactForm() {
    if (!project::ServiceAddresses::hasContact()) {
        QMessageBox::information(window_, tr("Formulário de Contato"),
                                 tr("O envio de mensagens não está configurado nesta "
                                    "instalação."));
        return;
    }
    if (contactDialog_)
        contactDialog_->close(); // built anew, never two at once

    auto* dialog = new QDialog(window_, Qt::WindowStaysOnTopHint);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Formulário de Contato"));
    dialog->setFixedSize(500, 400);
    contactDialog_ = dialog;
    nameEdit_ = new QLineEdit(dialog);
    emailEdit_ = new QLineEdit(dialog);
    messageEdit_ = new QTextEdit(dialog);

    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(new QLabel(tr("Nome:"), dialog));
    layout->addWidget(nameEdit_);
    layout->addWidget(new QLabel(tr("E-mail:"), dialog));
    layout->addWidget(emailEdit_);
    layout->addWidget(new QLabel(tr("Mensagem:"), dialog));
    layout->addWidget(messageEdit_);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    auto* cancel = new QPushButton(tr("&Cancelar"), dialog);
    auto* send = new QPushButton(tr("&Enviar"), dialog);
    send->setDefault(true);
    buttons->addWidget(cancel);
    buttons->addWidget(send);
    layout->addLayout(buttons);

    connect(cancel, &QPushButton::clicked, dialog, &QDialog::close);
    connect(send, &QPushButton::clicked, this, &ContactForm::sendContactForm);
    dialog->show();
}

void ContactForm::sendContactForm() {
    if (!contactDialog_)
        return;
    const QString name = nameEdit_->text();
    const QString message = messageEdit_->toPlainText();
    const QString email = emailEdit_->text();
    if (name.isEmpty() || message.isEmpty() || email.isEmpty()) {
        QMessageBox::warning(contactDialog_, tr("Envio de Formulário"),
                             tr("Por favor, preencha todos os campos do formulário antes de "
                                "enviar."));
        return;
    }
    QString body = name + QStringLiteral(".\n\n") + message + QStringLiteral("\n\n") +
                   tr("Enviado pela ferramenta Selvorá.");
    // What the endpoint has always received: "&" arrives as "E".
    body.replace(QLatin1Char('&'), QLatin1Char('E'));
    contactManager_->get(QNetworkRequest(project::ServiceAddresses::contactUrl(email, body)));
    contactDialog_->close(); // the answer comes later
}

void ContactForm::finishRequestContactForm(QNetworkReply* reply) {
    if (reply->error() != QNetworkReply::NoError)
        QMessageBox::critical(window_, tr("Envio de Formulário"),
                              tr("<h2>Servidor fora do ar.</h2><p>Tente enviar o formulário em "
                                 "outro momento."));
    else
        QMessageBox::information(window_, tr("Envio de Formulário"),
                                 tr("<h2>Sua mensagem foi enviada.</h2><p>Em breve a equipe do "
                                    "Selvorá entrará em contato."));
    reply->deleteLater();
}

} // namespace menu
} // namespace selvora
