#ifndef SELVORA_LIBRARYVIEW_LIBRARYLISTITEM_H
#define SELVORA_LIBRARYVIEW_LIBRARYLISTITEM_H

#include <QListWidgetItem>
#include <QPixmap>
#include <QString>
#include <QVariant>

namespace selvora {
namespace libraryView {

// A file of the project's library: its name, a framed icon, and the preview as tool-tip.
class LibraryListItem : public QListWidgetItem {
public:
    explicit LibraryListItem(const QString& path);

    QString getPath() const { return path_; }
    int getType() const { return type_; }
    // The preview, made on first use.
    QPixmap getToolTipItem() const;
    // The tool-tip is the preview, encoded when asked for.
    QVariant data(int role) const override;

    // The kind a file of this name becomes, by its extension in any case; -1 when none.
    static int typeOf(const QString& path);

private:
    void loadPixmap();

    QString path_;
    QString source_; // the picture of the icon and of the preview
    mutable QPixmap toolTipItem_;
    mutable bool previewMade_ = false;
    int type_ = -1;
};

} // namespace libraryView
} // namespace selvora

#endif
