#ifndef SELVORA_SPATIALVIEW_RENAMEDIALOG_H
#define SELVORA_SPATIALVIEW_RENAMEDIALOG_H

#include "spatialview/CanvasDialog.h"

#include <QPointer>

class QLineEdit;

namespace selvora {
namespace document {
class Scene;
}

namespace spatialview {

// The label of a media (the current one by default), at most fifteen characters; a blank label
// is refused.
class RenameDialog : public CanvasDialog {
    Q_OBJECT
public:
    RenameDialog(document::Scene* scene, QWidget* parent, int mediaId = -1);

private slots:
    void save();

private:
    QPointer<document::Scene> scene_;
    int mediaId_ = -1;
    QLineEdit* edit_ = nullptr;
};

} // namespace spatialview
} // namespace selvora

#endif
