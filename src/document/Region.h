#ifndef SELVORA_DOCUMENT_REGION_H
#define SELVORA_DOCUMENT_REGION_H

#include <QHash>
#include <QObject>
#include <QString>

namespace selvora {
namespace document {

// One rectangle of a template, into which the user puts a media. Its geometry is percent of
// the canvas, in the same number form as a media's.
class Region : public QObject {
    Q_OBJECT
public:
    Region(int id, int templateId);
    ~Region() override;

    static int getLastId() { return countRegion_; }

    int getId() const { return id_; }
    int getTemplateId() const { return templateId_; }
    int getMediaId() const { return mediaId_; }
    void setMediaId(int id) { mediaId_ = id; }
    int getOrder() const { return order_; }
    void setOrder(int order) { order_ = order; }
    QString getLabel() const { return label_; }
    bool setLabel(const QString& label);

    QString getLeft() const { return left_; }
    QString getTop() const { return top_; }
    QString getWidth() const { return width_; }
    QString getHeight() const { return height_; }
    QString getLayer() const { return layer_; }
    bool setLeft(const QString& value);
    bool setTop(const QString& value);
    bool setWidth(const QString& value);
    bool setHeight(const QString& value);
    bool setLayer(const QString& value);

    double getLeftPx(double viewWidth) const;
    double getTopPx(double viewHeight) const;
    double getWidthPx(double viewWidth) const;
    double getHeightPx(double viewHeight) const;
    void setLeftPx(double px, double viewWidth);
    void setTopPx(double px, double viewHeight);
    void setWidthPx(double px, double viewWidth);
    void setHeightPx(double px, double viewHeight);

    QHash<QString, QString> getProperties() const;
    void setProperties(const QHash<QString, QString>& properties);
    QHash<QString, QString> getPropertiesPx(double viewWidth, double viewHeight) const;
    void setPropertiesPx(const QHash<QString, QString>& properties, double viewWidth,
                         double viewHeight);

    bool setRelatedRegion(const QString& value);
    QString getRelatedRegion() const { return relatedRegion_; }
    bool setRelatedTemplate(const QString& value);
    QString getRelatedTemplate() const { return relatedTemplate_; }
    bool setRelatedToRegion(const QString& value);
    QString getRelatedToRegion() const { return relatedToRegion_; }
    bool setRelatedToTemplate(const QString& value);
    QString getRelatedToTemplate() const { return relatedToTemplate_; }

signals:
    void propertiesChanged(QHash<QString, QString> properties);
    void propertiesChanged(int id, QHash<QString, QString> oldProperties,
                           QHash<QString, QString> newProperties);
    void projectModified();
    void changeLabel(QString label);
    void changeLabel(int id, QString oldLabel, QString newLabel);

private:
    void storeGeometry(QString Region::*member, const QString& value);
    bool setNumber(QString Region::*member, const QString& value);
    bool storeRelated(QString Region::*member, const QString& value);

    static int countRegion_;

    int id_;
    int templateId_;
    int mediaId_ = -1;
    int order_ = -1;
    QString label_;
    QString relatedRegion_;
    QString relatedTemplate_;
    QString relatedToRegion_;
    QString relatedToTemplate_;
    QString left_;
    QString top_;
    QString width_;
    QString height_;
    QString layer_;
};

} // namespace document
} // namespace selvora

#endif
