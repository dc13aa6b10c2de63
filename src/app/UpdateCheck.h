#ifndef SELVORA_APP_UPDATECHECK_H
#define SELVORA_APP_UPDATECHECK_H

#include <QObject>
#include <QString>
#include <QStringList>

class QDomDocument;
class QNetworkAccessManager;
class QNetworkReply;
class QWidget;

namespace selvora {
namespace menu {

// The check for a newer version over the update addresses, one after the other: every document
// that answers is read and the highest version over all of them is offered for download. The
// menu's check tells every outcome; the start-up check speaks only of a newer version.
class UpdateCheck : public QObject {
    Q_OBJECT
public:
    enum class Mode { onDemand, startUp };

    // A document bigger than this is no version document: it is dropped as it arrives.
    static constexpr qint64 kMaxDocumentBytes = 1024 * 1024;

    UpdateCheck(Mode mode, QWidget* window, QObject* parent = nullptr);

    // A version as a number: its points removed, the rest read as a decimal ("1.10.0" is 1100,
    // "2.0" is 20). Anything else is 0.
    static qulonglong versionNumber(QString version);

public slots:
    // Queues the update addresses behind those of a round in progress and asks the first.
    void settingVerifyUpdate();
    void verifyUpdate(QNetworkReply* reply);
    void finishVerifyUpdate();

private:
    void requestFirst();
    // The body, or nothing when the reply was cut for its size.
    static QByteArray body(QNetworkReply* reply);
    static bool parse(const QByteArray& body, QDomDocument& document);
    void takeVersions(const QDomDocument& document);
    void offerDownload();

    Mode mode_;
    QWidget* window_;
    QNetworkAccessManager* updateManager_;
    QString newVersion_;
    QString newVersionSrc_;
    QStringList updateUrls_;
    QStringList newVersionNotes_;
    // Whether any version document was ever read: an empty result then means "nothing newer",
    // not "nothing reached".
    bool readAny_ = false;
};

} // namespace menu
} // namespace selvora

#endif
