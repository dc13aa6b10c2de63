#include "libraryView/LibraryListItem.h"

#include "app/Definitions.h"
#include "libraryView/RowPicture.h"

#include <QFileInfo>

namespace selvora {
namespace libraryView {

namespace {
using MediaType = Definitions::kMediaType;
} // namespace

LibraryListItem::LibraryListItem(const QString& path) : path_(path) {
    loadPixmap();
    setText(QFileInfo(path).fileName());
    setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

int LibraryListItem::typeOf(const QString& path) {
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    const QString extension = dot < 0 ? QString() : path.mid(dot + 1).toLower();
    if (Definitions::getImageExtensions().contains(extension, Qt::CaseInsensitive))
        return int(MediaType::image);
    if (Definitions::getVideoExtensions().contains(extension, Qt::CaseInsensitive))
        return int(MediaType::video);
    if (Definitions::getAudioExtensions().contains(extension, Qt::CaseInsensitive))
        return int(MediaType::audio);
    return -1;
}

void LibraryListItem::loadPixmap() {
    type_ = typeOf(path_);
    QString source;
    switch (type_) {
    case int(MediaType::image):
        source = path_;
        break;
    case int(MediaType::video):
        source = QStringLiteral(":/imagens/icones-Selvora_04");
        break;
    case int(MediaType::audio):
        source = QStringLiteral(":/imagens/icones-Selvora_06");
        break;
    default:
        // A file of no known kind (only a hand-made project names one) keeps a plain row.
        return;
    }
    source_ = source;
    previewMade_ = false;
    RowPicture::decorate(this, source);
}

QPixmap LibraryListItem::getToolTipItem() const {
    if (!previewMade_) {
        toolTipItem_ = RowPicture::preview(source_);
        previewMade_ = true;
    }
    return toolTipItem_;
}

QVariant LibraryListItem::data(int role) const {
    // A row with no picture (a file of no known kind) has no tool-tip.
    if (role == Qt::ToolTipRole && !source_.isEmpty())
        return RowPicture::toolTip(getToolTipItem());
    return QListWidgetItem::data(role);
}

} // namespace libraryView
} // namespace selvora
