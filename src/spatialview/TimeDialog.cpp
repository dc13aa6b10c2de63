#include "spatialview/TimeDialog.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace selvora {
namespace spatialview {

using document::Media;
using document::Sync;
using SyncType = Definitions::kSyncType;

TimeDialog::TimeDialog(document::Document* document, document::Scene* scene, int targetId,
                       bool isMedia, End end, QWidget* parent)
    : CanvasDialog(parent,
                   end == End::start ? tr("Início de exibição da mídia.")
                                     : tr("Fim de exibição da mídia."),
                   QSize(250, 100)),
      document_(document), scene_(scene), targetId_(targetId), isMedia_(isMedia), end_(end) {
    setFocusPolicy(Qt::WheelFocus);
    const int now = scene_ ? scene_->getCurrentTime() : 0;
    int shown = startTime();
    bool clockOn = true;
    if (end_ == End::start) {
        // The start can be set to now only while now is before the stop.
        clockOn = !hasStop() || stopTime() > now;
    } else {
        shown = hasStop() ? stopTime() : now;
        clockOn = startTime() < now;
    }
    edit_ = timeEdit(shown);
    clock_ = new QPushButton(QIcon(QStringLiteral(":/imagens/clock")), QString(), this);
    clock_->setToolTip(tr("Atribuir tempo atual"));
    clock_->setAutoDefault(false);
    clock_->setEnabled(clockOn);

    auto* field = new QHBoxLayout();
    field->addWidget(new QLabel(end_ == End::start ? tr("Início:") : tr("Fim:"), this));
    field->addWidget(edit_);
    field->addWidget(clock_);
    auto* column = new QVBoxLayout(this);
    column->addLayout(field);
    column->addStretch();
    addButtons(column);
    connect(clock_, &QPushButton::clicked, this, &TimeDialog::setCurrentTime);
    connect(saveButton(), &QPushButton::clicked, this, &TimeDialog::save);
}

int TimeDialog::startTime() const {
    const Sync* sync = scene_ ? scene_->getSync(SyncType::start, targetId_, isMedia_) : nullptr;
    return sync ? sync->getTime() : 0;
}

int TimeDialog::stopTime() const {
    const Sync* sync = scene_ ? scene_->getSync(SyncType::stop, targetId_, isMedia_) : nullptr;
    return sync ? sync->getTime() : 0;
}

bool TimeDialog::hasStop() const {
    return scene_ && scene_->hasSync(SyncType::stop, targetId_, isMedia_);
}

QString TimeDialog::mediaLabel() const {
    const Media* media = scene_ ? scene_->getMedia(-1) : nullptr;
    return media ? media->getLabel() : QString();
}

void TimeDialog::setCurrentTime() {
    if (scene_)
        edit_->setText(timeText(scene_->getCurrentTime()));
}

void TimeDialog::save() {
    if (!scene_)
        return;
    const int time = seconds(edit_);
    if (end_ == End::start)
        saveStart(time);
    else
        saveStop(time);
}

void TimeDialog::saveStart(int time) {
    if (hasStop()) {
        // With a stop set, a start before it is not taken from here either: the dialog stays.
        if (time >= stopTime()) {
            edit_->setText(timeText(startTime()));
            tell(QMessageBox::Information, tr("Início de exibição da mídia"),
                 tr("O tempo do início de exibição da mídia \"%1\" tem que ser menor que o tempo "
                    "de fim.")
                     .arg(mediaLabel()));
        }
        return;
    }
    if (time > scene_->getTotalTime()) {
        edit_->setText(timeText(startTime()));
        if (isMedia_)
            tell(QMessageBox::Warning, tr("Início de exibição da mídia"),
                 tr("O tempo do início de exibição da mídia \"%1\" não pode ser maior que o tempo "
                    "total da cena.")
                     .arg(mediaLabel()));
        else
            tell(QMessageBox::Warning, tr("Início de exibição do template"),
                 tr("O tempo do início de exibição do template não pode ser maior que o tempo "
                    "total da cena."));
        return;
    }
    write(time);
}

void TimeDialog::saveStop(int time) {
    const QString title =
        isMedia_ ? tr("Fim de exibição da mídia") : tr("Fim de exibição do template");
    if (time <= startTime()) {
        // The text typed stays, so that the author sees what was refused.
        tell(QMessageBox::Warning, title,
             isMedia_ ? tr("O tempo do fim de exibição da mídia \"%1\" tem que ser maior o tempo "
                           "de início.")
                            .arg(mediaLabel())
                      : tr("O tempo do fim de exibição do template tem que ser maior o tempo de "
                           "início."));
        return;
    }
    if (time > scene_->getTotalTime()) {
        edit_->setText(timeText(hasStop() ? stopTime() : scene_->getTotalTime()));
        tell(QMessageBox::Warning, title,
             isMedia_ ? tr("O tempo do fim de exibição da mídia \"%1\" não pode ser maior que o "
                           "tempo total da cena.")
                            .arg(mediaLabel())
                      : tr("O tempo do fim de exibição do template não pode ser maior que o "
                           "tempo total da cena."));
        return;
    }
    write(time);
}

void TimeDialog::write(int time) {
    const SyncType type = end_ == End::start ? SyncType::start : SyncType::stop;
    if (isMedia_) {
        const Media* media = scene_->getMedia(targetId_);
        if (!media || media->getId() != targetId_)
            return; // gone while the dialog was open
        document_->createSync(scene_, targetId_, true, type, time, media->getProperties(), -1);
    } else {
        document_->createSync(scene_, targetId_, false, type, time, -1);
    }
    if (scene_)
        scene_->resetExecuteSyncs();
    close();
}

} // namespace spatialview
} // namespace selvora
