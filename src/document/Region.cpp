#include "document/Region.h"

#include "document/IdCounter.h"
#include "document/NumberForm.h"

namespace selvora {
namespace document {

int Region::countRegion_ = 0;

namespace {
const char* const kGeometryKeys[] = {"left", "top", "width", "height"};
}

Region::Region(int id, int templateId)
    : id_(IdCounter::take(countRegion_, id)), templateId_(templateId),
      label_(QString::fromUtf8("Região_%1").arg(id_ + 1)), relatedRegion_(""), relatedTemplate_(""),
      relatedToRegion_(""), relatedToTemplate_("") {}

Region::~Region() = default;

bool Region::setLabel(const QString& label) {
    if (label.isNull())
        return false;
    const QString old = label_;
    label_ = label;
    emit changeLabel(label_);
    emit changeLabel(id_, old, label_);
    emit projectModified();
    return true;
}

void Region::storeGeometry(QString Region::*member, const QString& value) {
    const QHash<QString, QString> old = getProperties();
    this->*member = value;
    const QHash<QString, QString> now = getProperties();
    emit propertiesChanged(now);
    emit propertiesChanged(id_, old, now);
}

bool Region::setLeft(const QString& value) {
    if (value.isNull())
        return false;
    storeGeometry(&Region::left_, NumberForm::lowByteChar(value));
    return true;
}

bool Region::setTop(const QString& value) {
    return setNumber(&Region::top_, value);
}
bool Region::setWidth(const QString& value) {
    return setNumber(&Region::width_, value);
}
bool Region::setHeight(const QString& value) {
    return setNumber(&Region::height_, value);
}

bool Region::setNumber(QString Region::*member, const QString& value) {
    if (value.isNull())
        return false;
    storeGeometry(member, NumberForm::of(value.toDouble()));
    return true;
}

bool Region::setLayer(const QString& value) {
    if (value.isNull())
        return false;
    layer_ = value;
    emit propertiesChanged(getProperties());
    return true;
}

double Region::getLeftPx(double viewWidth) const {
    return left_.toDouble() * viewWidth / 100;
}
double Region::getTopPx(double viewHeight) const {
    return top_.toDouble() * viewHeight / 100;
}
double Region::getWidthPx(double viewWidth) const {
    return width_.toDouble() * viewWidth / 100;
}
double Region::getHeightPx(double viewHeight) const {
    return height_.toDouble() * viewHeight / 100;
}

void Region::setLeftPx(double px, double viewWidth) {
    storeGeometry(&Region::left_, NumberForm::percent(px, viewWidth));
}
void Region::setTopPx(double px, double viewHeight) {
    storeGeometry(&Region::top_, NumberForm::percent(px, viewHeight));
}
void Region::setWidthPx(double px, double viewWidth) {
    storeGeometry(&Region::width_, NumberForm::percent(px, viewWidth));
}
void Region::setHeightPx(double px, double viewHeight) {
    storeGeometry(&Region::height_, NumberForm::percent(px, viewHeight));
}

QHash<QString, QString> Region::getProperties() const {
    return {
        {"left", left_}, {"top", top_}, {"width", width_}, {"height", height_}, {"layer", layer_}};
}

void Region::setProperties(const QHash<QString, QString>& properties) {
    const QHash<QString, QString> old = getProperties();
    QString Region::*const members[] = {&Region::left_, &Region::top_, &Region::width_,
                                        &Region::height_};
    for (int i = 0; i < 4; ++i) {
        const auto it = properties.constFind(QLatin1String(kGeometryKeys[i]));
        if (it != properties.constEnd())
            this->*members[i] = NumberForm::of(it.value().toDouble());
    }
    const auto layer = properties.constFind(QStringLiteral("layer"));
    if (layer != properties.constEnd())
        layer_ = layer.value();
    const QHash<QString, QString> now = getProperties();
    emit propertiesChanged(now);
    emit propertiesChanged(id_, old, now);
}

QHash<QString, QString> Region::getPropertiesPx(double viewWidth, double viewHeight) const {
    return NumberForm::toPixels(getProperties(), viewWidth, viewHeight);
}

void Region::setPropertiesPx(const QHash<QString, QString>& properties, double viewWidth,
                             double viewHeight) {
    setProperties(NumberForm::toPercent(properties, viewWidth, viewHeight));
}

bool Region::storeRelated(QString Region::*member, const QString& value) {
    if (value.isNull())
        return false;
    this->*member = value;
    return true;
}

bool Region::setRelatedRegion(const QString& value) {
    return storeRelated(&Region::relatedRegion_, value);
}
bool Region::setRelatedTemplate(const QString& value) {
    return storeRelated(&Region::relatedTemplate_, value);
}
bool Region::setRelatedToRegion(const QString& value) {
    return storeRelated(&Region::relatedToRegion_, value);
}
bool Region::setRelatedToTemplate(const QString& value) {
    return storeRelated(&Region::relatedToTemplate_, value);
}

} // namespace document
} // namespace selvora
