#ifndef SELVORA_FEATURE_FEATURE_H
#define SELVORA_FEATURE_FEATURE_H

#include "app/Definitions.h"

#include <QFont>
#include <QHash>
#include <QList>
#include <QMetaObject>
#include <QNetworkReply>
#include <QPointer>
#include <QString>
#include <QWidget>

class QColorDialog;
class QTabWidget;

namespace selvora {
namespace document {
class Document;
class Media;
class Scene;
class Sync;
} // namespace document

class TwoStageToolTip;

namespace feature {

class LinkTab;
class ShapeTab;
class TextTab;
class TransformTab;

// The properties panel: four tabs that mirror the current media's properties at the scene's
// current second, and write each change back. Colours, fonts, hover and outline belong to the
// media alone; geometry, layer and transparency go to the media and to a "set" sync at the
// current second, so that they vary in time; the link goes to the media's "select" sync.
class Feature : public QWidget {
    Q_OBJECT
public:
    enum Tab { transformTab = 0, linkTab, textTab, shapeTab };

    Feature(document::Document* document, QWidget* parent = nullptr);
    ~Feature() override;

    QTabWidget* tabs() const { return tabWidget_; }
    TwoStageToolTip* toolTips() const { return toolTip_; }
    document::Media* currentMedia() const;

public slots:
    void clearFeature();
    void changeSlide(selvora::document::Scene* scene);
    void setOptions();
    // Any scene removed: a held scene that goes is dropped before it is deleted.
    void removeSlide(int id);
    void setPropertiesEnableState(selvora::Definitions::kPlayerStatus status);
    void setCurrentMedia(selvora::document::Media* media);
    void disableInterfaceFeature(int id);
    void nullingCurrentMedia();
    void updateValuesFeature();
    void updateRangeValue();
    void updateMediaSyncProperties();
    void updateMediaProperties();
    void updateSyncsProperties();
    void updateTextUrl();
    void fillColorDialog();
    void fontColorDialog();
    void outlineColorDialog();
    void setLayerUp();
    void setLayerDown();
    void setLayerToFront();
    void setLayerToBack();
    void updateFillColor();
    void updateFillColorNull();
    void updateFontColor();
    void updateOutlineColor();
    void updateOutlineColorNull();
    void updateFontFamily(const QFont& font);
    // The address is tried by the link dialog of the canvas, not here.
    void checkUrl() {}
    void error(QNetworkReply::NetworkError code);

protected:
    bool event(QEvent* event) override;

private:
    void createObjects();
    void createLayout();
    void setConnections();
    void setDocumentConnections();
    void setSceneConnections();
    void setSceneDisconnections();
    void setMediaConnections();
    void setMediaDisconnections();
    void setSyncConnections();
    // Nested pairs are allowed: only the outermost pair disconnects and reconnects.
    void turnOnPropertiesConnections();
    void turnOffPropertiesConnections();

    void updateInterfaceFeature();
    void enabledLayout(bool enabled);
    void enabledTab(bool enabled);
    void loadMediaProperties(const QHash<QString, QString>& properties);
    void loadLink();
    void showFontType(int fontType);
    void showAlignment(int alignment);
    void moveToLayerOf(const document::Media* source);
    // `table` gives, for each of the eight style codes, the code after the click.
    void toggleFontType(const int* table);
    void alignText(int alignment);
    void chooseColour(QColorDialog* dialog, const QString& colour);
    void rebuildOptions(int skippedScene);

    document::Document* document_;
    QPointer<document::Scene> scene_;
    QPointer<document::Media> media_;
    QPointer<document::Sync> link_;

    int fontType_ = 0;
    int textAlignment_ = 1;
    // The layer to write with the next change of geometry.
    QString layer_;
    // The font to write: the media's own until the user picks another in the font combo, which
    // shows a substitute when the media's family is not installed.
    QString fontFamily_;
    QString colorFill_;
    QString colorFont_;
    QString colorOutline_;

    QTabWidget* tabWidget_ = nullptr;
    TransformTab* transformPage_ = nullptr;
    LinkTab* linkPage_ = nullptr;
    TextTab* textPage_ = nullptr;
    ShapeTab* shapePage_ = nullptr;
    QColorDialog* fillDialog_ = nullptr;
    QColorDialog* fontDialog_ = nullptr;
    QColorDialog* outlineDialog_ = nullptr;
    TwoStageToolTip* toolTip_ = nullptr;

    QList<QMetaObject::Connection> propertiesConnections_;
    int propertiesOff_ = 0;
};

} // namespace feature
} // namespace selvora

#endif
