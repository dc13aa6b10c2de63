#ifndef SELVORA_SPATIALVIEW_INTERACTIVELINKDIALOG_H
#define SELVORA_SPATIALVIEW_INTERACTIVELINKDIALOG_H

#include "spatialview/CanvasDialog.h"

#include <QNetworkReply>
#include <QPointer>

class QComboBox;
class QLabel;
class QLineEdit;
class QNetworkAccessManager;

namespace selvora {
namespace document {
class Document;
class Scene;
} // namespace document

namespace spatialview {

// The link of the current media, fired by a key or a click while the scene plays: to a scene
// at a second of it, or to a web page. Both are one select sync of the media, which the two
// forms fill in from; each form keeps what the other one set.
class InteractiveLinkDialog : public CanvasDialog {
    Q_OBJECT
public:
    enum class Target { scene, web };

    InteractiveLinkDialog(document::Document* document, document::Scene* scene, Target target,
                          QWidget* parent);

    // Why the last check of the address failed, by the family of the network error.
    QString networkError() const { return networkError_; }

public slots:
    // An address without a scheme is taken as http.
    void updateTextUrl();
    // Tries the address before saving; a page that does not answer is saved only if the
    // author says so.
    void checkUrl();
    void saveLinkInteractiveMedia();

private slots:
    void error(QNetworkReply::NetworkError code);
    void replyFinished();

private:
    void fillFromLink();
    void endCheck();

    document::Document* document_;
    QPointer<document::Scene> scene_;
    int mediaId_ = -1;
    QComboBox* target_ = nullptr;
    QLineEdit* instant_ = nullptr;
    QComboBox* key_ = nullptr;
    QLineEdit* url_ = nullptr;
    QLabel* checking_ = nullptr;
    QNetworkAccessManager* network_ = nullptr;
    QPointer<QNetworkReply> reply_;
    QNetworkReply::NetworkError code_ = QNetworkReply::NoError;
    QString networkError_;
};

} // namespace spatialview
} // namespace selvora

#endif
