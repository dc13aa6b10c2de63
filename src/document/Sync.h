#ifndef SELVORA_DOCUMENT_SYNC_H
#define SELVORA_DOCUMENT_SYNC_H

#include "app/Definitions.h"

#include <QHash>
#include <QObject>
#include <QString>

namespace selvora {
namespace document {

// One timed event of a scene: at a whole second something happens to a media or a template.
// A set holds a copy of the look the media takes then; a select is a link that waits for a key,
// a click or a time; a goto jumps to another scene.
class Sync : public QObject {
    Q_OBJECT
public:
    Sync(int id, int time, Definitions::kSyncType type, int mediaTarget, bool isMedia);
    ~Sync() override;

    static void resetSync() { countSync_ = 0; }
    static int getLastId() { return countSync_; }
    // The automatic start syncs of media all share one id; the counter is kept above it.
    static int takeId(int requested);

    int getId() const { return id_; }
    int getTime() const { return time_; }
    Definitions::kSyncType getType() const { return type_; }
    int getMediaTarget() const { return mediaTarget_; }
    bool getIsMedia() const { return isMedia_; }
    QString getLeft() const { return left_; }
    QString getTop() const { return top_; }
    QString getWidth() const { return width_; }
    QString getHeight() const { return height_; }
    QString getLayer() const { return layer_; }
    QString getTransparency() const { return transparency_; }
    QString getLink() const { return link_; }
    QString getTimeEvent() const { return timeEvent_; }
    QString getKey() const { return key_; }
    QString getUrl() const { return url_; }
    QHash<QString, QString> getProperties() const;

    double getLeftPx(int viewWidth) const;
    double getTopPx(int viewHeight) const;
    double getWidthPx(int viewWidth) const;
    double getHeightPx(int viewHeight) const;
    void setLeftPx(double px, int viewWidth);
    void setTopPx(double px, int viewHeight);
    void setWidthPx(double px, int viewWidth);
    void setHeightPx(double px, int viewHeight);

    bool setTime(int time);
    bool setType(Definitions::kSyncType type);
    bool setMediaTarget(int target);
    bool setLeft(const QString& value);
    bool setTop(const QString& value);
    bool setWidth(const QString& value);
    bool setHeight(const QString& value);
    bool setLayer(const QString& value);
    bool setTransparency(const QString& value);
    bool setLink(const QString& value);
    bool setTimeEvent(const QString& value);
    bool setKey(const QString& value);
    bool setUrl(const QString& value);
    void setProperties(const QHash<QString, QString>& properties);

signals:
    void timeChanged(int time);
    void timeChanged(int id, int oldTime, int newTime);
    void typeChanged(int id, selvora::Definitions::kSyncType oldType,
                     selvora::Definitions::kSyncType newType);
    void propertiesChanged(QHash<QString, QString> properties);
    void propertiesChanged(int id, QHash<QString, QString> oldProperties,
                           QHash<QString, QString> newProperties);
    void projectModified();

private:
    bool store(QString Sync::*member, const QString& value, bool withId = true);

    static int countSync_;

    int id_;
    int time_;
    Definitions::kSyncType type_;
    int mediaTarget_;
    bool isMedia_;
    QString left_;
    QString top_;
    QString width_;
    QString height_;
    QString layer_;
    QString transparency_;
    QString link_;
    QString timeEvent_;
    QString key_;
    QString url_;

    struct Key;
    static const Key kKeys[];
};

} // namespace document
} // namespace selvora

#endif
