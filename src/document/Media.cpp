#include "document/Media.h"

#include "document/IdCounter.h"
#include "document/NumberForm.h"

#include <QColor>
#include <QFileInfo>
#include <QFont>
#include <QImageReader>
#include <QMetaMethod>

#include <iterator>

namespace selvora {
namespace document {

int Media::countMedia_ = 0;

// The property keys, in the order in which setProperties applies them.
struct Media::Key {
    const char* name;
    QString Media::*member;
    bool geometry; // normalised through the number form
    bool settable; // regionId and templateId are never set through the hash
};

const Media::Key Media::kKeys[] = {
    {"left", &Media::left_, true, true},
    {"top", &Media::top_, true, true},
    {"width", &Media::width_, true, true},
    {"height", &Media::height_, true, true},
    {"layer", &Media::layer_, false, true},
    {"transparency", &Media::transparency_, false, true},
    {"hover", &Media::hover_, false, true},
    {"wording", &Media::wording_, false, true},
    {"geometry", &Media::geometry_, false, true},
    {"colorFill", &Media::colorFill_, false, true},
    {"colorOutline", &Media::colorOutline_, false, true},
    {"widthOutline", &Media::widthOutline_, false, true},
    {"styleOutline", &Media::styleOutline_, false, true},
    {"fontFamily", &Media::fontFamily_, false, true},
    {"fontType", &Media::fontType_, false, true},
    {"fontSize", &Media::fontSize_, false, true},
    {"textAlignment", &Media::textAlignment_, false, true},
    {"colorFont", &Media::colorFont_, false, true},
    {"regionId", &Media::regionId_, false, false},
    {"templateId", &Media::templateId_, false, false},
};

Media::Media(const QString& pathStart, Definitions::kMediaType type, int id, const QString& label,
             const QHash<QString, QString>& properties, const QString& pathProject)
    : id_(IdCounter::take(countMedia_, id)), pathStart_(pathStart), pathProject_(pathProject),
      type_(type), regionId_(""), templateId_("") {
    label_ = label.isEmpty() ? QString::fromUtf8("Mídia_%1").arg(id_ + 1) : label;

    const double viewWidth = Definitions::getViewWidth();
    const double viewHeight = Definitions::getViewHeight();
    const QString arial = QFont("Arial").toString();
    switch (type_) {
    case Definitions::kMediaType::video:
        setWidthPx(Definitions::getMediaWidth(type_), viewWidth);
        setHeightPx(Definitions::getMediaHeight(type_), viewHeight);
        setTopPx(Definitions::getMediaTop(), viewHeight);
        setLeftPx(Definitions::getMediaLeft(), viewWidth);
        break;
    case Definitions::kMediaType::audio:
        break;
    case Definitions::kMediaType::image:
        applyImageDefaults(viewWidth, viewHeight);
        centre(viewWidth, viewHeight);
        break;
    case Definitions::kMediaType::shape:
        setWidthPx(Definitions::getMediaWidth(type_), viewWidth);
        setHeightPx(Definitions::getMediaHeight(type_), viewHeight);
        colorFill_ = QColor(255, 127, 0, 255).name();
        colorFont_ = QColor(Qt::black).name();
        colorOutline_ = QColor(Qt::black).name();
        widthOutline_ = "1";
        styleOutline_ = "0";
        fontFamily_ = arial;
        fontSize_ = "14";
        fontType_ = "0";
        textAlignment_ = "1";
        centre(viewWidth, viewHeight);
        break;
    case Definitions::kMediaType::text:
        setWidthPx(Definitions::getMediaWidth(type_), viewWidth);
        setHeightPx(Definitions::getMediaHeight(type_), viewHeight);
        fontFamily_ = arial;
        fontSize_ = "14";
        fontType_ = "0";
        textAlignment_ = "1";
        colorFont_ = QColor(Qt::black).name();
        centre(viewWidth, viewHeight);
        break;
    }
    setTransparency(QString::number(Definitions::getMediaTransparency()));
    setProperties(properties);
}

Media::~Media() = default;

// The picture keeps its natural size when it fits; a tall one takes the default height, a wide
// one the default width, and the other side follows the file's proportion.
void Media::applyImageDefaults(double viewWidth, double viewHeight) {
    // Only a regular file is read: a device or a pipe would block here for ever.
    const QSize size =
        QFileInfo(pathStart_).isFile() ? QImageReader(pathStart_).size() : QSize(-1, -1);
    const double w = size.width();
    const double h = size.height();
    if (w < viewWidth && h < viewHeight) {
        setWidthPx(w, viewWidth);
        setHeightPx(h, viewHeight);
    } else if (w < viewWidth) {
        setHeightPx(Definitions::getMediaHeight(type_), viewHeight);
        setWidthPx(w * getHeightPx(viewHeight) / h, viewWidth);
    } else {
        setWidthPx(Definitions::getMediaWidth(type_), viewWidth);
        setHeightPx(h * getWidthPx(viewWidth) / w, viewHeight);
    }
}

void Media::centre(double viewWidth, double viewHeight) {
    setLeftPx(static_cast<int>(viewWidth) / 2 - getWidthPx(viewWidth) * 0.5, viewWidth);
    setTopPx(static_cast<int>(viewHeight) / 2 - getHeightPx(viewHeight) * 0.5, viewHeight);
}

double Media::getLeftPx(double viewWidth) const {
    return left_.toDouble() * viewWidth / 100;
}
double Media::getTopPx(double viewHeight) const {
    return top_.toDouble() * viewHeight / 100;
}
double Media::getWidthPx(double viewWidth) const {
    return width_.toDouble() * viewWidth / 100;
}
double Media::getHeightPx(double viewHeight) const {
    return height_.toDouble() * viewHeight / 100;
}

void Media::setLeftPx(double px, double viewWidth) {
    store(&Media::left_, NumberForm::percent(px, viewWidth), Emit::both);
}
void Media::setTopPx(double px, double viewHeight) {
    store(&Media::top_, NumberForm::percent(px, viewHeight), Emit::both);
}
void Media::setWidthPx(double px, double viewWidth) {
    store(&Media::width_, NumberForm::percent(px, viewWidth), Emit::both);
}
void Media::setHeightPx(double px, double viewHeight) {
    store(&Media::height_, NumberForm::percent(px, viewHeight), Emit::both);
}

QHash<QString, QString> Media::getProperties() const {
    QHash<QString, QString> properties;
    properties.reserve(int(std::size(kKeys)));
    for (const Key& key : kKeys)
        properties.insert(QLatin1String(key.name), this->*key.member);
    return properties;
}

QHash<QString, QString> Media::getPropertiesPx(double viewWidth, double viewHeight) const {
    return NumberForm::toPixels(getProperties(), viewWidth, viewHeight);
}

// The property signals carry whole hashes; with no one listening (a medium being built or
// loaded) they are not built at all.
bool Media::propertiesWatched() const {
    static const QMetaMethod news =
        QMetaMethod::fromSignal(QOverload<QHash<QString, QString>>::of(&Media::propertiesChanged));
    static const QMetaMethod changes = QMetaMethod::fromSignal(
        QOverload<int, QHash<QString, QString>, QHash<QString, QString>>::of(
            &Media::propertiesChanged));
    return isSignalConnected(news) || isSignalConnected(changes);
}

void Media::setProperties(const QHash<QString, QString>& properties) {
    const bool watched = propertiesWatched();
    const QHash<QString, QString> old = watched ? getProperties() : QHash<QString, QString>();
    for (const Key& key : kKeys) {
        if (!key.settable)
            continue;
        const auto it = properties.constFind(QLatin1String(key.name));
        if (it == properties.constEnd())
            continue;
        this->*key.member = key.geometry ? NumberForm::of(it.value().toDouble()) : it.value();
    }
    // No projectModified: the player applies syncs through here on every tick.
    if (!watched)
        return;
    const QHash<QString, QString> now = getProperties();
    emit propertiesChanged(now);
    emit propertiesChanged(id_, old, now);
}

void Media::setPropertiesPx(const QHash<QString, QString>& properties, double viewWidth,
                            double viewHeight) {
    setProperties(NumberForm::toPercent(properties, viewWidth, viewHeight));
}

void Media::emitChanged(const QHash<QString, QString>& old, Emit emits) {
    if (propertiesWatched()) {
        const QHash<QString, QString> now = getProperties();
        emit propertiesChanged(now);
        if (emits != Emit::newOnly)
            emit propertiesChanged(id_, old, now);
    }
    if (emits == Emit::bothModified)
        emit projectModified();
}

bool Media::store(QString Media::*member, const QString& value, Emit emits) {
    if (value.isNull())
        return false;
    const QHash<QString, QString> old =
        propertiesWatched() ? getProperties() : QHash<QString, QString>();
    this->*member = value;
    emitChanged(old, emits);
    return true;
}

bool Media::setLeft(const QString& value) {
    return !value.isNull() && store(&Media::left_, NumberForm::lowByteChar(value), Emit::both);
}
bool Media::setTop(const QString& value) {
    return !value.isNull() && store(&Media::top_, NumberForm::of(value.toDouble()), Emit::both);
}
bool Media::setWidth(const QString& value) {
    return !value.isNull() && store(&Media::width_, NumberForm::of(value.toDouble()), Emit::both);
}
bool Media::setHeight(const QString& value) {
    return !value.isNull() && store(&Media::height_, NumberForm::of(value.toDouble()), Emit::both);
}
bool Media::setLayer(const QString& value) {
    return store(&Media::layer_, value, Emit::newOnly);
}
bool Media::setTransparency(const QString& value) {
    return store(&Media::transparency_, value, Emit::both);
}
bool Media::setHover(const QString& value) {
    return store(&Media::hover_, value, Emit::bothModified);
}
bool Media::setWording(const QString& value) {
    return store(&Media::wording_, value, Emit::bothModified);
}
bool Media::setColorFill(const QString& value) {
    return store(&Media::colorFill_, value, Emit::bothModified);
}
bool Media::setColorFont(const QString& value) {
    return store(&Media::colorFont_, value, Emit::bothModified);
}
bool Media::setColorOutline(const QString& value) {
    return store(&Media::colorOutline_, value, Emit::bothModified);
}
bool Media::setWidthOutline(const QString& value) {
    return store(&Media::widthOutline_, value, Emit::bothModified);
}
bool Media::setStyleOutline(const QString& value) {
    return store(&Media::styleOutline_, value, Emit::bothModified);
}
bool Media::setFontFamily(const QString& value) {
    return store(&Media::fontFamily_, value, Emit::bothModified);
}
bool Media::setFontType(const QString& value) {
    return store(&Media::fontType_, value, Emit::bothModified);
}
bool Media::setFontSize(const QString& value) {
    return store(&Media::fontSize_, value, Emit::bothModified);
}
bool Media::setTextAlignment(const QString& value) {
    return store(&Media::textAlignment_, value, Emit::bothModified);
}
bool Media::setRegionId(const QString& value) {
    return store(&Media::regionId_, value, Emit::bothModified);
}
bool Media::setTemplateId(const QString& value) {
    return store(&Media::templateId_, value, Emit::bothModified);
}

bool Media::setGeometry(const QString& value) {
    if (value.isNull())
        return false;
    geometry_ = value;
    emit geometryChanged(id_);
    if (propertiesWatched())
        emit propertiesChanged(getProperties());
    emit projectModified();
    return true;
}

bool Media::setPathStart(const QString& value) {
    pathStart_ = value;
    emit pathStartChanged(id_);
    emit projectModified();
    return true;
}

bool Media::setPathProject(const QString& value) {
    pathProject_ = value;
    emit projectModified();
    return true;
}

bool Media::setLabel(const QString& value) {
    if (value.isNull())
        return false;
    const QString old = label_;
    label_ = value;
    emit changeLabel(label_);
    emit changeLabel(id_, old, label_);
    emit projectModified();
    return true;
}

} // namespace document
} // namespace selvora
