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
    toolTipItem_ = RowPicture::decorate(this, source);
}

} // namespace libraryView
} // namespace selvora
