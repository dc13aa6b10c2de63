#ifndef SELVORA_APP_REPOSITORYDIALOG_H
#define SELVORA_APP_REPOSITORYDIALOG_H

#include <QDialog>

class QLineEdit;

namespace selvora {
namespace document {
class Document;
}

namespace menu {

// Asks for the address of the publishing repository and offers to publish once it is stored.
class RepositoryDialog : public QDialog {
    Q_OBJECT
public:
    RepositoryDialog(document::Document* document, QWidget* parent);

public slots:
    void saveRepository();

signals:
    // "Sim" to publishing now.
    void publishRequested();

private:
    document::Document* document_;
    QLineEdit* edit_;
};

} // namespace menu
} // namespace selvora

#endif
