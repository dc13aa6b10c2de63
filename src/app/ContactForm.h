#ifndef SELVORA_APP_CONTACTFORM_H
#define SELVORA_APP_CONTACTFORM_H

#include <QObject>
#include <QPointer>

class QDialog;
class QLineEdit;
class QNetworkAccessManager;
class QNetworkReply;
class QTextEdit;
class QWidget;

namespace selvora {
namespace menu {

// The contact form of the Help menu: name, e-mail and message go to the contact endpoint in
// one GET; the answer is told when it arrives, after the form has closed.
class ContactForm : public QObject {
    Q_OBJECT
public:
    ContactForm(QWidget* window, QObject* parent = nullptr);

public slots:
    void openContactForm();
    void sendContactForm();
    void finishRequestContactForm(QNetworkReply* reply);

private:
    QWidget* window_;
    QPointer<QDialog> contactDialog_;
    QPointer<QTextEdit> messageEdit_;
    QPointer<QLineEdit> nameEdit_;
    QPointer<QLineEdit> emailEdit_;
    QNetworkAccessManager* contactManager_;
};

} // namespace menu
} // namespace selvora

#endif
