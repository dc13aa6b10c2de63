#ifndef SELVORA_DOCUMENT_MEDIA_H
#define SELVORA_DOCUMENT_MEDIA_H

#include "app/Definitions.h"

#include <QHash>
#include <QObject>
#include <QString>

namespace selvora {
namespace document {

// One object of a scene: the main video, a picture, a text box, a shape or a sound. Its look is
// a set of named text properties; geometry is held as percent of the canvas, so that a project
// does not depend on the screen it was made on.
class Media : public QObject {
    Q_OBJECT
public:
    Media(const QString& pathStart, Definitions::kMediaType type, int id, const QString& label,
          const QHash<QString, QString>& properties, const QString& pathProject);
    ~Media() override;

    static void resetMedia() { countMedia_ = 0; }
    static int getLastId() { return countMedia_; }

    int getId() const { return id_; }
    Definitions::kMediaType getType() const { return type_; }
    QString getPathStart() const { return pathStart_; }
    QString getPathProject() const { return pathProject_; }
    QString getLabel() const { return label_; }
    QString getHover() const { return hover_; }
    QString getRegionId() const { return regionId_; }
    QString getTemplateId() const { return templateId_; }
    QString getLeft() const { return left_; }
    QString getTop() const { return top_; }
    QString getWidth() const { return width_; }
    QString getHeight() const { return height_; }
    QString getLayer() const { return layer_; }
    QString getTransparency() const { return transparency_; }
    QString getWording() const { return wording_; }
    QString getGeometry() const { return geometry_; }
    QString getColorFill() const { return colorFill_; }
    QString getColorFont() const { return colorFont_; }
    QString getColorOutline() const { return colorOutline_; }
    QString getWidthOutline() const { return widthOutline_; }
    QString getStyleOutline() const { return styleOutline_; }
    QString getFontFamily() const { return fontFamily_; }
    QString getFontType() const { return fontType_; }
    QString getFontSize() const { return fontSize_; }
    QString getTextAlignment() const { return textAlignment_; }

    double getLeftPx(double viewWidth) const;
    double getTopPx(double viewHeight) const;
    double getWidthPx(double viewWidth) const;
    double getHeightPx(double viewHeight) const;
    void setLeftPx(double px, double viewWidth);
    void setTopPx(double px, double viewHeight);
    void setWidthPx(double px, double viewWidth);
    void setHeightPx(double px, double viewHeight);

    QHash<QString, QString> getProperties() const;
    QHash<QString, QString> getPropertiesPx(double viewWidth, double viewHeight) const;
    void setProperties(const QHash<QString, QString>& properties);
    void setPropertiesPx(const QHash<QString, QString>& properties, double viewWidth,
                         double viewHeight);

    bool setLeft(const QString& value);
    bool setTop(const QString& value);
    bool setWidth(const QString& value);
    bool setHeight(const QString& value);
    bool setLayer(const QString& value);
    bool setTransparency(const QString& value);
    bool setHover(const QString& value);
    bool setWording(const QString& value);
    bool setColorFill(const QString& value);
    bool setColorFont(const QString& value);
    bool setColorOutline(const QString& value);
    bool setWidthOutline(const QString& value);
    bool setStyleOutline(const QString& value);
    bool setFontFamily(const QString& value);
    bool setFontType(const QString& value);
    bool setFontSize(const QString& value);
    bool setTextAlignment(const QString& value);
    bool setRegionId(const QString& value);
    bool setTemplateId(const QString& value);
    bool setGeometry(const QString& value);
    bool setPathStart(const QString& value);
    bool setPathProject(const QString& value);
    bool setLabel(const QString& value);

signals:
    void pathStartChanged(int id);
    void geometryChanged(int id);
    void propertiesChanged(QHash<QString, QString> properties);
    void propertiesChanged(int id, QHash<QString, QString> oldProperties,
                           QHash<QString, QString> newProperties);
    void projectModified();
    void changeLabel(QString label);
    void changeLabel(int id, QString oldLabel, QString newLabel);

private:
    enum class Emit { newOnly, both, bothModified };
    bool store(QString Media::*member, const QString& value, Emit emits);
    void emitChanged(const QHash<QString, QString>& old, Emit emits);
    bool propertiesWatched() const;
    void applyImageDefaults(double viewWidth, double viewHeight);
    void centre(double viewWidth, double viewHeight);

    static int countMedia_;

    int id_;
    QString pathStart_;
    QString pathProject_;
    Definitions::kMediaType type_;
    QString label_;
    QString hover_;
    QString regionId_;
    QString templateId_;
    QString left_;
    QString top_;
    QString width_;
    QString height_;
    QString layer_;
    QString transparency_;
    QString wording_;
    QString geometry_;
    QString colorFill_;
    QString colorFont_;
    QString colorOutline_;
    QString widthOutline_;
    QString styleOutline_;
    QString fontFamily_;
    QString fontType_;
    QString fontSize_;
    QString textAlignment_;

    struct Key;
    static const Key kKeys[];
};

} // namespace document
} // namespace selvora

#endif
