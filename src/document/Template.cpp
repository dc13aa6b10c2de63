#include "document/Template.h"

#include "document/LayerOrder.h"
#include "document/Region.h"

namespace selvora {
namespace document {

Template::Template(Scene* scene, int idArgument)
    : Scene(TemplateTag{}), idArgument_(idArgument), scene_(scene) {}

Template::~Template() {
    const QList<Region*> regions = regions_.values();
    regions_.clear();
    qDeleteAll(regions);
}

void Template::addRelation(int templateId, Definitions::kTemplateType role) {
    relationsTemplations_.append(templateId);
    relationsTypes_.append(role);
}

Region* Template::getRegion(int id) const {
    if (regions_.isEmpty())
        return nullptr;
    if (id != -1) {
        if (Region* region = regions_.value(id, nullptr))
            return region;
    }
    return regions_.value(currentRegion_, nullptr);
}

bool Template::setCurrentRegion(int id) {
    Region* region = regions_.value(id, nullptr);
    if (!region)
        return false;
    currentRegion_ = id;
    emit regionCurrent(region);
    emit regionCurrentId(id);
    hasCurrentRegion_ = true;
    return true;
}

bool Template::removeRegion(int id) {
    Region* region = regions_.value(id, nullptr);
    if (!region)
        return false;
    emit projectModified();
    emit regionRemoved(region);
    emit regionRemovedId(id, getId());
    emit regionNull();
    hasCurrentRegion_ = false;
    regions_.remove(id);
    delete region;
    return true;
}

void Template::loadRegion(Region* region) {
    if (!region)
        return;
    if (Region* previous = regions_.value(region->getId(), nullptr)) {
        if (previous == region)
            return;
        delete previous;
    }
    regions_.insert(region->getId(), region);
    currentRegion_ = region->getId();
}

void Template::addRegion(Region* region) {
    if (!region)
        return;
    regions_.insert(region->getId(), region);
    // Regions of a later template lie above all the regions placed before it.
    Region* last = LayerOrder<Region>(regions_.values()).last();
    const int layer = last && last != region ? last->getLayer().toInt() + 1 : getCountRegions() + 1;
    region->setLayer(QString::number(layer));
    updateCountRegions(1);
    emit projectModified();
    emit regionAdded(region);
    setCurrentRegion(region->getId());
}

Region* Template::firstRegionLayer() const {
    return LayerOrder<Region>(regions_.values()).first();
}
Region* Template::lastRegionLayer() const {
    return LayerOrder<Region>(regions_.values()).last();
}
Region* Template::backRegionLayer(Region* region) const {
    return LayerOrder<Region>(regions_.values()).back(region);
}
Region* Template::nextRegionLayer(Region* region) const {
    return LayerOrder<Region>(regions_.values()).next(region);
}
QList<Region*> Template::getAllRegionsLayerNull() const {
    return LayerOrder<Region>(regions_.values()).layerNull();
}
QList<Region*> Template::getAllRegionsOrderLayer() const {
    return LayerOrder<Region>(regions_.values()).ordered();
}

bool Template::hasRegionOrder(int order) const {
    for (Region* region : regions_) {
        if (region->getOrder() == order)
            return true;
    }
    return false;
}

void Template::showComponents() {
    for (Region* region : regions_)
        emit regionVisible(region, true);
}

void Template::hideComponents() {
    for (Region* region : regions_)
        emit regionVisible(region, false);
}

void Template::showRegion(int id) {
    if (Region* region = regions_.value(id, nullptr))
        emit regionVisible(region, true);
}

void Template::hideRegion(int id) {
    if (Region* region = regions_.value(id, nullptr))
        emit regionVisible(region, false);
}

} // namespace document
} // namespace selvora
