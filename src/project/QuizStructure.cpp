#include "project/QuizStructure.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <QHash>
#include <QSet>

namespace selvora {
namespace project {

namespace {

// The right answer of question i enters the feedback scene at 5 (i - 1), and the goto at
// 5 (N + i) leads back to that question: a scene cut into slots by chance has no such answers.
bool answersLeadIn(const document::Document* document, const document::Scene* feedback,
                   const QHash<int, int>& links, int questions, int slot) {
    for (int i = 1; i <= questions; ++i) {
        const document::Scene* question =
            document->getSceneAll().value(links.value(slot * (questions + i), -1), nullptr);
        if (!question)
            return false;
        bool found = false;
        const QList<document::Sync*> selects =
            question->getAllSyncs(Definitions::kSyncType::select);
        for (const document::Sync* sync : selects)
            found = found || (sync->getLink().toInt() == feedback->getId() &&
                              sync->getTimeEvent().toInt() == slot * (i - 1));
        if (!found)
            return false;
    }
    return true;
}

} // namespace

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
        QHash<int, int> links; // second -> scene
        const QList<document::Sync*> gotos = scene->getAllSyncs(Definitions::kSyncType::goTo);
        for (const document::Sync* sync : gotos)
            links.insert(sync->getTime(), sync->getLink().toInt());
        const QList<int> seconds = links.keys();
        if (QSet<int>(seconds.begin(), seconds.end()) != expected ||
            gotos.size() != expected.size() ||
            !answersLeadIn(document, scene, links, questions, quiz.slotSeconds))
            continue;
        quiz.feedbackScene = scene->getId();
        quiz.questions = questions;
        quiz.finalScene = links.value(questions * quiz.slotSeconds);
        return quiz;
    }
    return quiz;
}

} // namespace project
} // namespace selvora
