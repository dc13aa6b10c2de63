#include "libraryView/SceneMediaItem.h"

#include "app/Definitions.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "libraryView/RowPicture.h"

namespace selvora {
namespace libraryView {

using document::Media;
using MediaType = Definitions::kMediaType;

SceneMediaItem::SceneMediaItem(Media* media, document::Scene* scene)
    : id_(media->getId()), scene_(scene) {
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled);
    loadPixmap();
    setText(media->getLabel());
    setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

Media* SceneMediaItem::getMedia() const {
    return scene_ && scene_->hasMedia(id_) ? scene_->getMedia(id_) : nullptr;
}

void SceneMediaItem::loadPixmap() {
    const Media* media = getMedia();
    if (!media)
        return;
    QString source;
    switch (media->getType()) {
    case MediaType::video:
        source = QStringLiteral(":/imagens/icones-Selvora_04");
        break;
    case MediaType::image:
        source = media->getPathStart();
        break;
    case MediaType::text:
        source = QStringLiteral(":/imagens/icones-Selvora_09");
        break;
    case MediaType::shape: {
        const QString legend = Definitions::getkShapeTypeLegend(media->getGeometry().toInt());
        source = legend.isEmpty() ? QStringLiteral(":/imagens/icone")
                                  : QStringLiteral(":/imagens/") + legend;
        break;
    }
    case MediaType::audio:
        source = QStringLiteral(":/imagens/icones-Selvora_06");
        break;
    }
    source_ = source;
    previewMade_ = false;
    RowPicture::decorate(this, source);
}

QPixmap SceneMediaItem::getToolTipItem() const {
    if (!previewMade_) {
        toolTipItem_ = RowPicture::preview(source_);
        previewMade_ = true;
    }
    return toolTipItem_;
}

QVariant SceneMediaItem::data(int role) const {
    // A row with no picture (a file of no known kind) has no tool-tip.
    if (role == Qt::ToolTipRole && !source_.isEmpty())
        return RowPicture::toolTip(getToolTipItem());
    return QListWidgetItem::data(role);
}

} // namespace libraryView
} // namespace selvora
