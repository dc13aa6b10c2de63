#include "document/Sync.h"

#include "document/IdCounter.h"

#include <QMetaMethod>

namespace selvora {
namespace document {

int Sync::countSync_ = 0;

// The keys of a sync's property hash, in order: a subset of the media's keys and the link.
struct Sync::Key {
    const char* name;
    QString Sync::*member;
};

const Sync::Key Sync::kKeys[] = {{"left", &Sync::left_},   {"top", &Sync::top_},
                                 {"width", &Sync::width_}, {"height", &Sync::height_},
                                 {"layer", &Sync::layer_}, {"transparency", &Sync::transparency_},
                                 {"link", &Sync::link_},   {"timeEvent", &Sync::timeEvent_},
                                 {"key", &Sync::key_},     {"url", &Sync::url_}};

namespace {

// Sync percent values are not cut to five characters, unlike those of a media.
QString percentOf(double px, int view) {
    return QString::number(px / view * 100, 'g', 6);
}

} // namespace

Sync::Sync(int id, int time, Definitions::kSyncType type, int mediaTarget, bool isMedia)
    : id_(takeId(id)), time_(time), type_(type), mediaTarget_(mediaTarget), isMedia_(isMedia) {}

Sync::~Sync() = default;

int Sync::takeId(int requested) {
    return IdCounter::take(countSync_, requested);
}

QHash<QString, QString> Sync::getProperties() const {
    QHash<QString, QString> properties;
    properties.reserve(10);
    for (const Key& key : kKeys)
        properties.insert(QLatin1String(key.name), this->*key.member);
    return properties;
}

void Sync::setProperties(const QHash<QString, QString>& properties) {
    // The signals carry whole hashes; with no one listening (a sync being loaded) they are
    // not built at all.
    static const QMetaMethod news =
        QMetaMethod::fromSignal(QOverload<QHash<QString, QString>>::of(&Sync::propertiesChanged));
    static const QMetaMethod changes = QMetaMethod::fromSignal(
        QOverload<int, QHash<QString, QString>, QHash<QString, QString>>::of(
            &Sync::propertiesChanged));
    const bool watched = isSignalConnected(news) || isSignalConnected(changes);
    const QHash<QString, QString> old = watched ? getProperties() : QHash<QString, QString>();
    for (const Key& key : kKeys) {
        const auto it = properties.constFind(QLatin1String(key.name));
        if (it != properties.constEnd())
            this->*key.member = it.value();
    }
    if (watched) {
        const QHash<QString, QString> now = getProperties();
        emit propertiesChanged(now);
        emit propertiesChanged(id_, old, now);
    }
    emit projectModified();
}

double Sync::getLeftPx(int viewWidth) const {
    return left_.toDouble() * viewWidth / 100;
}
double Sync::getTopPx(int viewHeight) const {
    return top_.toDouble() * viewHeight / 100;
}
double Sync::getWidthPx(int viewWidth) const {
    return width_.toDouble() * viewWidth / 100;
}
double Sync::getHeightPx(int viewHeight) const {
    return height_.toDouble() * viewHeight / 100;
}

void Sync::setLeftPx(double px, int viewWidth) {
    store(&Sync::left_, percentOf(px, viewWidth));
}
void Sync::setTopPx(double px, int viewHeight) {
    store(&Sync::top_, percentOf(px, viewHeight));
}
void Sync::setWidthPx(double px, int viewWidth) {
    store(&Sync::width_, percentOf(px, viewWidth));
}
void Sync::setHeightPx(double px, int viewHeight) {
    store(&Sync::height_, percentOf(px, viewHeight));
}

bool Sync::setTime(int time) {
    const int old = time_;
    time_ = time;
    emit timeChanged(time_);
    emit timeChanged(id_, old, time_);
    emit projectModified();
    return true;
}

bool Sync::setType(Definitions::kSyncType type) {
    const Definitions::kSyncType old = type_;
    type_ = type;
    emit typeChanged(id_, old, type_);
    emit projectModified();
    return true;
}

bool Sync::setMediaTarget(int target) {
    mediaTarget_ = target;
    return true;
}

bool Sync::store(QString Sync::*member, const QString& value, bool withId) {
    if (value.isNull())
        return false;
    const QHash<QString, QString> old = getProperties();
    this->*member = value;
    const QHash<QString, QString> now = getProperties();
    emit propertiesChanged(now);
    if (withId)
        emit propertiesChanged(id_, old, now);
    emit projectModified();
    return true;
}

bool Sync::setLeft(const QString& value) {
    return store(&Sync::left_, value, false);
}
bool Sync::setTop(const QString& value) {
    return store(&Sync::top_, value);
}
bool Sync::setWidth(const QString& value) {
    return store(&Sync::width_, value);
}
bool Sync::setHeight(const QString& value) {
    return store(&Sync::height_, value);
}
bool Sync::setLayer(const QString& value) {
    return store(&Sync::layer_, value);
}
bool Sync::setTransparency(const QString& value) {
    return store(&Sync::transparency_, value);
}
bool Sync::setLink(const QString& value) {
    return store(&Sync::link_, value);
}
bool Sync::setTimeEvent(const QString& value) {
    return store(&Sync::timeEvent_, value);
}
bool Sync::setKey(const QString& value) {
    return store(&Sync::key_, value);
}
bool Sync::setUrl(const QString& value) {
    return store(&Sync::url_, value);
}

} // namespace document
} // namespace selvora
