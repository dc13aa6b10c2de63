#include "spatialview/InteractiveLinkDialog.h"

#include "app/KeyChoices.h"
#include "app/YesNoBox.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QPushButton>
#include <QVBoxLayout>

namespace selvora {
namespace spatialview {

using document::Media;
using document::Sync;
using SyncType = Definitions::kSyncType;

namespace {
// A page that takes longer than this to answer is taken as not answering.
constexpr int kCheckTimeoutMs = 10000;
} // namespace

InteractiveLinkDialog::InteractiveLinkDialog(document::Document* document, document::Scene* scene,
                                             Target target, QWidget* parent)
    : CanvasDialog(parent,
                   target == Target::scene ? tr("Elo interativo da mídia.")
                                           : tr("Elo para página Web"),
                   QSize(350, 150)),
      document_(document), scene_(scene) {
    if (const Media* media = scene_ ? scene_->getMedia(-1) : nullptr)
        mediaId_ = media->getId();
    target_ = sceneChoices(document_);
    instant_ = timeEdit(0);
    key_ = new QComboBox(this);
    KeyChoices::fill(key_);
    url_ = new QLineEdit(this);
    fillFromLink();

    // The fields of the other form are kept, hidden, so that saving keeps what they hold.
    auto* grid = new QGridLayout();
    if (target == Target::scene) {
        grid->addWidget(new QLabel(tr("Ir para Cena:"), this), 0, 0);
        grid->addWidget(target_, 0, 1);
        grid->addWidget(new QLabel(tr("Início da Cena:"), this), 1, 0);
        grid->addWidget(instant_, 1, 1);
        grid->addWidget(new QLabel(tr("Tecla:"), this), 2, 0);
        grid->addWidget(key_, 2, 1);
        url_->hide();
    } else {
        grid->addWidget(new QLabel(tr("Endereço da web:"), this), 0, 0);
        grid->addWidget(url_, 0, 1);
        grid->addWidget(new QLabel(tr("Tecla:"), this), 1, 0);
        grid->addWidget(key_, 1, 1);
        target_->hide();
        instant_->hide();
    }
    auto* column = new QVBoxLayout(this);
    column->addLayout(grid);
    if (target == Target::web) {
        checking_ = new QLabel(tr("Verificando link..."), this);
        checking_->setStyleSheet(QStringLiteral("QLabel{color : rgba(255,127,0,255);}"));
        checking_->hide();
        column->addWidget(checking_);
    }
    addButtons(column);
    if (target == Target::scene) {
        connect(saveButton(), &QPushButton::clicked, this,
                &InteractiveLinkDialog::saveLinkInteractiveMedia);
        connect(saveButton(), &QPushButton::clicked, this, &QDialog::close);
    } else {
        connect(url_, &QLineEdit::editingFinished, this, &InteractiveLinkDialog::updateTextUrl);
        connect(saveButton(), &QPushButton::clicked, this, &InteractiveLinkDialog::checkUrl);
    }
}

void InteractiveLinkDialog::fillFromLink() {
    const Sync* link = scene_ ? scene_->getSync(SyncType::select, mediaId_, true) : nullptr;
    if (!link)
        return;
    target_->setCurrentIndex(qMax(0, target_->findData(link->getLink().toInt())));
    if (link->getLink().isEmpty())
        target_->setCurrentIndex(0);
    instant_->setText(timeText(link->getTimeEvent().toInt()));
    const QString key = Definitions::getkButtonTypeLegendBr(link->getKey().toInt());
    key_->setCurrentIndex(key.isEmpty() ? 0 : qMax(0, key_->findText(key)));
    url_->setText(link->getUrl());
}

void InteractiveLinkDialog::updateTextUrl() {
    const QString text = url_->text();
    if (text.isEmpty())
        return;
    if (!text.contains(QLatin1String("http://")) && !text.contains(QLatin1String("https://")))
        url_->setText(QStringLiteral("http://") + text);
}

void InteractiveLinkDialog::checkUrl() {
    if (reply_)
        return; // a check is under way
    updateTextUrl();
    if (!network_)
        network_ = new QNetworkAccessManager(this);
    QNetworkRequest request(QUrl(url_->text(), QUrl::StrictMode));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setTransferTimeout(kCheckTimeoutMs);
    // Only whether the page answers: its headers, not its body.
    reply_ = network_->head(request);
    code_ = QNetworkReply::NoError;
    connect(reply_, &QNetworkReply::errorOccurred, this, &InteractiveLinkDialog::error);
    connect(reply_, &QNetworkReply::finished, this, [this]() {
        if (code_ == QNetworkReply::NoError)
            replyFinished();
    });
    saveButton()->setEnabled(false);
    checking_->show();
}

void InteractiveLinkDialog::endCheck() {
    if (reply_) {
        reply_->disconnect(this);
        reply_->deleteLater();
    }
    reply_ = nullptr;
    checking_->hide();
    saveButton()->setEnabled(true);
}

void InteractiveLinkDialog::error(QNetworkReply::NetworkError code) {
    code_ = code;
    networkError_.clear();
    const int value = int(code);
    if (value >= 1 && value <= 99)
        networkError_ = tr("Erro relacionado a rede.");
    else if (value >= 101 && value <= 199)
        networkError_ = tr("Erro relacionado ao proxy.");
    else if (value >= 201 && value <= 299)
        networkError_ = tr("Erro relacionado ao conteúdo.");
    else if (value >= 301 && value <= 399)
        networkError_ = tr("Erro de protocolo.");
    else if (value >= 401 && value <= 499)
        networkError_ = tr("Erro relacionado ao servidor. Provavelmente sua URL é inválida.");
    replyFinished();
}

void InteractiveLinkDialog::replyFinished() {
    const QNetworkReply::NetworkError code = code_;
    endCheck();
    if (code == QNetworkReply::NoError) {
        saveLinkInteractiveMedia();
        close();
        return;
    }
    if (YesNoBox::ask(QMessageBox::Question, tr("Elo para página Web"),
                      tr("Não foi possível testar o endereço indicado.\n%1\n\nDeseja salvar "
                         "mesmo assim?\n")
                          .arg(networkError_),
                      this, Qt::WindowStaysOnTopHint)) {
        saveLinkInteractiveMedia();
        close();
    }
}

void InteractiveLinkDialog::saveLinkInteractiveMedia() {
    if (!scene_ || !scene_->hasMedia(mediaId_))
        return;
    const int target = target_->currentData().toInt();
    const int key = key_->currentData().toInt();
    QHash<QString, QString> properties;
    properties.insert(QStringLiteral("link"), target == -1 ? QString() : QString::number(target));
    properties.insert(QStringLiteral("timeEvent"),
                      target == -1 ? QString() : QString::number(seconds(instant_)));
    properties.insert(QStringLiteral("key"), key == -1 ? QString() : QString::number(key));
    properties.insert(QStringLiteral("url"), url_->text());
    // At second 0: the link holds through the media's whole display.
    document_->createSync(scene_, mediaId_, true, SyncType::select, 0, properties, -1);
}

} // namespace spatialview
} // namespace selvora
