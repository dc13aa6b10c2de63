#ifndef SELVORA_DOCUMENT_HISTORYSTEP_H
#define SELVORA_DOCUMENT_HISTORYSTEP_H

#include "document/Document.h"

#include <QPointer>

namespace selvora {
namespace document {

// One command of the user that changes the model in several places (a paste, a change of
// layer) is one step of undo: the changes made while this object lives are undone together.
class HistoryStep {
public:
    explicit HistoryStep(Document* document) : document_(document) {
        if (document_)
            document_->beginHistoryStep();
    }
    ~HistoryStep() {
        if (document_)
            document_->endHistoryStep();
    }
    HistoryStep(const HistoryStep&) = delete;
    HistoryStep& operator=(const HistoryStep&) = delete;

private:
    QPointer<Document> document_;
};

} // namespace document
} // namespace selvora

#endif
