#include "spatialview/RenameDialog.h"

#include "document/Media.h"
#include "document/Scene.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace selvora {
namespace spatialview {

RenameDialog::RenameDialog(document::Scene* scene, QWidget* parent, int mediaId)
    : CanvasDialog(parent, tr("Rótulo da mídia."), QSize(250, 100)), scene_(scene) {
    const document::Media* media = scene_ && (mediaId == -1 || scene_->hasMedia(mediaId))
                                       ? scene_->getMedia(mediaId)
                                       : nullptr;
    if (media)
        mediaId_ = media->getId();
    edit_ = new QLineEdit(media ? media->getLabel() : QString(), this);
    edit_->setMaxLength(15);
    auto* field = new QHBoxLayout();
    field->addWidget(new QLabel(tr("Rótulo:"), this));
    field->addWidget(edit_);
    auto* column = new QVBoxLayout(this);
    column->addLayout(field);
    addButtons(column);
    connect(saveButton(), &QPushButton::clicked, this, &RenameDialog::save);
}

void RenameDialog::save() {
    // Blanks alone would name nothing the author could see in the lists.
    if (edit_->text().trimmed().isEmpty()) {
        tell(QMessageBox::Warning, tr("Rótulo da mídia."),
             tr("Por favor, informe o rótulo da mídia antes de salvar."));
        return;
    }
    // By id: the media may have gone while the dialog was open.
    if (scene_ && scene_->hasMedia(mediaId_))
        scene_->getMedia(mediaId_)->setLabel(edit_->text());
    close();
}

} // namespace spatialview
} // namespace selvora
