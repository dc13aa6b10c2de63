#ifndef SELVORA_SPATIALVIEW_TIMEDIALOG_H
#define SELVORA_SPATIALVIEW_TIMEDIALOG_H

#include "spatialview/CanvasDialog.h"

#include <QPointer>

class QLineEdit;
class QPushButton;

namespace selvora {
namespace document {
class Document;
class Scene;
} // namespace document

namespace spatialview {

// The second at which a media, or a template, starts or stops being shown. Saving writes a
// start or stop sync; a time out of the scene or on the wrong side of the other end is refused
// with a box and the field put back.
class TimeDialog : public CanvasDialog {
    Q_OBJECT
public:
    enum class End { start, stop };

    // The target is a media (isMedia) or a template, by id.
    TimeDialog(document::Document* document, document::Scene* scene, int targetId, bool isMedia,
               End end, QWidget* parent);

private slots:
    void setCurrentTime();
    void save();

private:
    void saveStart(int time);
    void saveStop(int time);
    int startTime() const;
    int stopTime() const;
    bool hasStop() const;
    // The label of the current media, which the messages name even for a template.
    QString mediaLabel() const;
    void write(int time);

    document::Document* document_;
    QPointer<document::Scene> scene_;
    int targetId_;
    bool isMedia_;
    End end_;
    QLineEdit* edit_ = nullptr;
    QPushButton* clock_ = nullptr;
};

} // namespace spatialview
} // namespace selvora

#endif
