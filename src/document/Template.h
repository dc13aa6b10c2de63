#ifndef SELVORA_DOCUMENT_TEMPLATE_H
#define SELVORA_DOCUMENT_TEMPLATE_H

#include "app/Definitions.h"
#include "document/Scene.h"

#include <QHash>
#include <QList>

namespace selvora {
namespace document {

class Region;

// A page layout placed on a scene: a set of regions. It is a scene so that it has a label, an
// id and a place on the timeline of its scene; its id comes from a counter of its own.
class Template : public Scene {
    Q_OBJECT
public:
    Template(Scene* scene, int idArgument);
    ~Template() override;

    Scene* getScene() const { return scene_; }
    QList<int> getRelationsTemplations() const { return relationsTemplations_; }
    QList<Definitions::kTemplateType> getRelationsTypes() const { return relationsTypes_; }
    void addRelation(int templateId, Definitions::kTemplateType role);

    bool hasCurrentRegion() const { return hasCurrentRegion_; }
    int countRegion() const { return regions_.size(); }
    Region* getRegion(int id) const;
    bool setCurrentRegion(int id);
    bool removeRegion(int id);
    void loadRegion(Region* region);
    void addRegion(Region* region);
    Region* firstRegionLayer() const;
    Region* lastRegionLayer() const;
    Region* backRegionLayer(Region* region) const;
    Region* nextRegionLayer(Region* region) const;
    QList<Region*> getAllRegions() const { return regions_.values(); }
    bool hasRegion(int id) const { return regions_.contains(id); }
    bool hasRegionOrder(int order) const;
    void showComponents();
    void hideComponents();
    void showRegion(int id);
    void hideRegion(int id);
    QList<Region*> getAllRegionsLayerNull() const;
    QList<Region*> getAllRegionsOrderLayer() const;
    // Regions keep their stacking once created.
    void updateRegionsLayer(int, int, int) {}

signals:
    void regionAdded(selvora::document::Region* region);
    void regionRemoved(selvora::document::Region* region);
    void regionRemovedId(int id, int templateId);
    void regionCurrent(selvora::document::Region* region);
    void regionCurrentId(int id);
    void regionNull();
    void updateLayers(int id, QList<selvora::document::Region*> regions);
    void regionVisible(selvora::document::Region* region, bool visible);

private:
    int idArgument_;
    bool hasCurrentRegion_ = false;
    int currentRegion_ = -1;
    Scene* scene_;
    QHash<int, Region*> regions_;
    QList<int> relationsTemplations_;
    QList<Definitions::kTemplateType> relationsTypes_;
};

} // namespace document
} // namespace selvora

#endif
