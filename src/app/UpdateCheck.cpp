#include "app/UpdateCheck.h"

#include "app/OrganisationInfo.h"
#include "app/YesNoBox.h"
#include "project/ProjectScan.h"
#include "project/ServiceAddresses.h"

#include <QAbstractButton>
#include <QDesktopServices>
#include <QDomDocument>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace selvora {
namespace menu {

namespace {
const char* const kOversize = "selvoraOversize";
} // namespace

UpdateCheck::UpdateCheck(Mode mode, QWidget* window, QObject* parent)
    : QObject(parent), mode_(mode), window_(window),
      updateManager_(new QNetworkAccessManager(this)) {
    connect(updateManager_, &QNetworkAccessManager::finished, this, &UpdateCheck::verifyUpdate);
}

qulonglong UpdateCheck::versionNumber(QString version) {
    version.remove(QLatin1Char('.'));
    bool ok = false;
    const qulonglong number = version.toULongLong(&ok, 10);
    return ok ? number : 0;
}

void UpdateCheck::settingVerifyUpdate() {
    const QStringList urls = project::ServiceAddresses::updateUrls();
    if (urls.isEmpty()) {
        // At start-up the check is simply skipped; asked for, it says why nothing happens.
        if (mode_ == Mode::onDemand)
            QMessageBox::information(window_, tr("Atualização do Selvorá"),
                                     tr("A verificação de atualizações não está configurada "
                                        "nesta instalação."));
        return;
    }
    // Nothing is cleared: a version found by an earlier check stays.
    updateUrls_ += urls;
    requestFirst();
}

void UpdateCheck::requestFirst() {
    QNetworkReply* reply = updateManager_->get(QNetworkRequest(QUrl(updateUrls_.first())));
    // A version document is small: a flood is cut as it arrives instead of filling the memory.
    connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > kMaxDocumentBytes) {
            reply->setProperty(kOversize, true);
            reply->abort();
        }
    });
}

QByteArray UpdateCheck::body(QNetworkReply* reply) {
    if (reply->property(kOversize).toBool())
        return QByteArray();
    return reply->readAll();
}

bool UpdateCheck::parse(const QByteArray& body, QDomDocument& document) {
    if (body.isEmpty())
        return false;
    // The look that guards the project reader guards this one too: no entities, no deep nesting.
    if (project::ProjectScan::scan(QString::fromUtf8(body)) != project::ProjectScan::Verdict::fine)
        return false;
    return document.setContent(body);
}

void UpdateCheck::takeVersions(const QDomDocument& document) {
    const QDomElement root = document.documentElement();
    if (!root.hasChildNodes())
        return;
    const QDomElement platform =
        root.elementsByTagName(QStringLiteral("linux")).item(0).toElement();
    if (platform.isNull())
        return;
    const QDomNodeList versions = platform.elementsByTagName(QStringLiteral("version"));
    for (int i = 0; i < versions.size(); ++i) {
        const QDomElement version = versions.item(i).toElement();
        const QString value = version.attribute(QStringLiteral("value"));
        // The start-up check compares against the held version with its points taken off.
        if (mode_ == Mode::startUp)
            newVersion_.remove(QLatin1Char('.'));
        const qulonglong held =
            versionNumber(newVersion_.isEmpty() ? OrganisationInfo::version() : newVersion_);
        if (held >= versionNumber(value))
            continue;
        newVersion_ = value;
        newVersionSrc_ = version.attribute(QStringLiteral("src"));
        for (QDomElement note = version.firstChildElement(); !note.isNull();
             note = note.nextSiblingElement())
            newVersionNotes_ << note.text();
    }
}

void UpdateCheck::verifyUpdate(QNetworkReply* reply) {
    // Read here and gone after: a reply is not kept for the life of the program.
    reply->deleteLater();
    if (!updateUrls_.isEmpty())
        updateUrls_.removeFirst();
    const bool oversize = reply->property(kOversize).toBool();
    QDomDocument document;

    if (mode_ == Mode::startUp) {
        if (parse(body(reply), document)) {
            readAny_ = true;
            takeVersions(document);
        } else if (newVersion_.isEmpty()) {
            updateUrls_.clear(); // nothing found yet: the start-up check gives up for good
            return;
        }
        if (!updateUrls_.isEmpty())
            requestFirst();
        else if (!newVersion_.isEmpty())
            offerDownload();
        return;
    }

    // An error ends the round with what was read; the addresses left wait for the next round.
    if (!oversize && reply->error() != QNetworkReply::NoError) {
        finishVerifyUpdate();
        return;
    }
    if (!parse(body(reply), document)) {
        if (updateUrls_.isEmpty())
            finishVerifyUpdate();
        return; // with addresses left, the round stops here without a word
    }
    readAny_ = true;
    takeVersions(document);
    if (updateUrls_.isEmpty())
        finishVerifyUpdate();
    else
        requestFirst();
}

void UpdateCheck::finishVerifyUpdate() {
    if (newVersion_.isEmpty() && !readAny_) {
        QMessageBox::information(window_, tr("Exportação"),
                                 tr("<h2>Erro de conexão</h2><p>Impossível conectar ao servidor. "
                                    "Verifique sua conexão com a internet."));
        return;
    }
    // The points go for good: the version offered is shown without them.
    newVersion_.remove(QLatin1Char('.'));
    if (versionNumber(OrganisationInfo::version()) >= versionNumber(newVersion_)) {
        QMessageBox::information(window_, tr("Atualização do Selvorá"),
                                 tr("A sua versão é a mais atual no momento."));
        return;
    }
    offerDownload();
}

void UpdateCheck::offerDownload() {
    if (!YesNoBox::ask(QMessageBox::Information, tr("Atualização do Selvorá"),
                       tr("Existe uma nova versão da ferramenta Selvorá.\nDeseja fazer o download "
                          "da versão %1?")
                           .arg(newVersion_),
                       nullptr, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint, QMessageBox::Yes))
        return;
    // The address comes from the network: only a web page goes to the browser.
    const QUrl source(newVersionSrc_);
    if (source.scheme() == QLatin1String("http") || source.scheme() == QLatin1String("https"))
        QDesktopServices::openUrl(source);
}

} // namespace menu
} // namespace selvora
