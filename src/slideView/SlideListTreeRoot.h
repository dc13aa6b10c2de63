#ifndef SELVORA_SLIDEVIEW_SLIDELISTTREEROOT_H
#define SELVORA_SLIDEVIEW_SLIDELISTTREEROOT_H

#include <QPixmap>
#include <QPointer>
#include <QVector>
#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;
class QMenu;

namespace selvora {
namespace document {
class Document;
class Scene;
} // namespace document

namespace wizards {
class TemplateWizard;
}

namespace slideView {

// The row of one scene in the scene list: its picture, its label, which the user edits in
// place, and the palette of the standard layouts.
class SlideListTreeRoot : public QWidget {
    Q_OBJECT
public:
    SlideListTreeRoot(document::Document* document, document::Scene* scene);

    void setId(int id) { id_ = id; }
    int getId() const { return id_; }
    int getRow() const { return row_; }
    void setLabel(const QString& label);
    document::Scene* getScene() const { return scene_; }
    QLineEdit* getLabelEdit() const { return labelEdit_; }
    QLabel* getPicture() const { return picture_; }
    QMenu* getLayoutMenu() const { return layoutMenu_; }
    const QVector<QAction*>& getLayoutActions() const { return layoutActions_; }
    // Cuts the edit off before the row goes away, so that the focus leaving it edits nothing.
    void setDisconnections();
    // Layout n, counted from 1, placed on the scene as a new template; from the second template
    // of the scene on, the wizard that relates them opens.
    void insertLayout(int number);
    wizards::TemplateWizard* getTemplateWizard() const;

public slots:
    void updateLabelSlide(QString label);
    void updateLabelScene();
    void openLayout();
    void setRow(int row) { row_ = row; }
    void setPicture(const QPixmap& picture);
    void showTemplateWizard();
    void insertLayout1() { insertLayout(1); }
    void insertLayout2() { insertLayout(2); }
    void insertLayout3() { insertLayout(3); }
    void insertLayout4() { insertLayout(4); }
    void insertLayout5() { insertLayout(5); }
    void insertLayout6() { insertLayout(6); }
    void insertLayout7() { insertLayout(7); }
    void insertLayout8() { insertLayout(8); }
    void insertLayout9() { insertLayout(9); }
    void insertLayout10() { insertLayout(10); }
    void insertLayout11() { insertLayout(11); }
    void insertLayout12() { insertLayout(12); }
    void insertLayout13() { insertLayout(13); }
    void insertLayout14() { insertLayout(14); }
    void insertLayout15() { insertLayout(15); }
    void insertLayout16() { insertLayout(16); }
    void insertLayout17() { insertLayout(17); }
    void insertLayout18() { insertLayout(18); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createLayout();
    void createLayoutActions();
    void createLayoutMenu();
    void showLayoutMenu();
    void setConnections();
    void setSceneConnections();

    document::Document* document_;
    QPointer<document::Scene> scene_;
    QMenu* layoutMenu_ = nullptr;
    QVector<QAction*> layoutActions_;
    int id_ = -1;
    int row_ = -1;
    QLabel* picture_ = nullptr;
    QLineEdit* labelEdit_ = nullptr;
    QPointer<wizards::TemplateWizard> templateWizard_;
};

} // namespace slideView
} // namespace selvora

#endif
