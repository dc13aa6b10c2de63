#ifndef SELVORA_PROJECT_QUIZSTRUCTURE_H
#define SELVORA_PROJECT_QUIZSTRUCTURE_H

namespace selvora {
namespace document {
class Document;
}

namespace project {

// The quiz that the wizard leaves in a project, recognised by its feedback scene: N questions
// give a scene of 10 N seconds cut into five-second slots, with one goto at the end of each slot
// (5 i and 5 (N + i)); the one at 5 N leads to the final scene, the one at 5 (N + i) back to
// question i, whose right answer enters slot i - 1. Entering slot i - 1 means question i was
// answered right, slot N + i - 1 that it was answered wrong (or not in time). Nothing else marks
// a quiz, so this is the one place that knows it.
class QuizStructure {
public:
    int feedbackScene = -1;
    int questions = 0;
    int finalScene = -1;
    int slotSeconds = 5;

    bool isValid() const { return feedbackScene >= 0 && questions > 0; }

    // The first scene, in play order, shaped as a feedback scene; invalid when there is none.
    static QuizStructure find(const document::Document* document);
};

} // namespace project
} // namespace selvora

#endif
