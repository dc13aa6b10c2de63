#ifndef SELVORA_SLIDEVIEW_SLIDELISTTREECHILD_H
#define SELVORA_SLIDEVIEW_SLIDELISTTREECHILD_H

#include <QPointer>
#include <QStringList>
#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;

namespace selvora {
namespace document {
class Document;
class Scene;
class Sync;
} // namespace document

namespace slideView {

// The row of one automatic link under its scene: when it fires ("Aos"), the scene it goes to
// ("Ir para") and the second it enters there ("No instante"), edited in place on the sync.
class SlideListTreeChild : public QWidget {
    Q_OBJECT
public:
    SlideListTreeChild(document::Document* document, document::Scene* scene, document::Sync* sync,
                       QWidget* parent);

    void setId(int id) { id_ = id; }
    int getId() const { return id_; }
    void setRow(int row) { row_ = row; }
    int getRow() const { return row_; }
    document::Sync* getSync() const { return sync_; }
    QLineEdit* getTimeEdit() const { return timeEdit_; }
    QLineEdit* getEventEdit() const { return eventEdit_; }
    QComboBox* getTargetCombo() const { return targetCombo_; }
    QPushButton* getRemoveButton() const { return removeButton_; }

    static int timeSeconds(const QStringList& parts);

public slots:
    void setOptions(int exclude = -1);
    void load();
    void updateSync();
    void removeSync();
    void setDisconnections();
    void setDocumentDisconnections();
    void setSyncDisconnections();
    void setSceneConnections(selvora::document::Scene* scene);
    void setSceneDisconnections(selvora::document::Scene* scene);

private slots:
    void refreshOptions() { setOptions(-1); }
    void sceneAdded(selvora::document::Scene* scene);

private:
    void createLayout();
    void setConnections();
    void setDocumentConnections();
    void setSyncConnections();
    // Shows the sync's present target in the combo.
    void showLink();
    // False when the row was destroyed while the box was open.
    bool inform(const QString& text);

    document::Document* document_;
    QPointer<document::Scene> scene_;
    QPointer<document::Sync> sync_;
    int id_ = -1;
    int row_ = -1;
    QLineEdit* timeEdit_ = nullptr;
    QLineEdit* eventEdit_ = nullptr;
    QComboBox* targetCombo_ = nullptr;
    QPushButton* removeButton_ = nullptr;
};

} // namespace slideView
} // namespace selvora

#endif
