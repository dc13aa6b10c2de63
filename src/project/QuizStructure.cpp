#include "project/QuizStructure.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <QSet>

namespace selvora {
namespace project {

QuizStructure QuizStructure::find(const document::Document* document) {
    QuizStructure quiz;
    const QList<document::Scene*> scenes = document->getSceneAllInOrder();
    for (const document::Scene* scene : scenes) {
        const int total = scene->getTotalTime();
        if (total <= 0 || total % (2 * quiz.slotSeconds) != 0)
            continue;
        const int questions = total / (2 * quiz.slotSeconds);
        QSet<int> expected;
        for (int slot = 1; slot <= 2 * questions; ++slot)
            expected.insert(slot * quiz.slotSeconds);
        QSet<int> found;
        const QList<document::Sync*> gotos = scene->getAllSyncs(Definitions::kSyncType::goTo);
        for (const document::Sync* sync : gotos)
            found.insert(sync->getTime());
        if (found == expected && gotos.size() == expected.size()) {
            quiz.feedbackScene = scene->getId();
            quiz.questions = questions;
            return quiz;
        }
    }
    return quiz;
}

} // namespace project
} // namespace selvora
