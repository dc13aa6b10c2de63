#ifndef SELVORA_SPATIALVIEW_AUTOMATICLINKDIALOG_H
#define SELVORA_SPATIALVIEW_AUTOMATICLINKDIALOG_H

#include "spatialview/CanvasDialog.h"

#include <QPointer>

class QComboBox;
class QLineEdit;

namespace selvora {
namespace document {
class Document;
class Scene;
} // namespace document

namespace spatialview {

// The link of a scene that fires by itself: at a second of this scene, go to a scene at a
// second of it. Saved as a goto sync; a link with no scene, past the end of the scene or to the
// very instant that fires it is refused.
class AutomaticLinkDialog : public CanvasDialog {
    Q_OBJECT
public:
    AutomaticLinkDialog(document::Document* document, document::Scene* scene, QWidget* parent);

private slots:
    void save();

private:
    void tell(const QString& text);

    document::Document* document_;
    QPointer<document::Scene> scene_;
    QLineEdit* at_ = nullptr;
    QComboBox* target_ = nullptr;
    QLineEdit* instant_ = nullptr;
};

} // namespace spatialview
} // namespace selvora

#endif
