#ifndef SELVORA_DOCUMENT_IDCOUNTER_H
#define SELVORA_DOCUMENT_IDCOUNTER_H

namespace selvora {
namespace document {

// The id rule shared by every model class: -1 asks for the counter's value, which then
// advances; any other id is taken as it is, and lifts the counter past it. A loaded project so
// leaves the counter above every id of its file, and history restores objects under old ids.
class IdCounter {
public:
    static int take(int& counter, int requested) {
        if (requested == -1)
            return counter++;
        if (requested >= counter)
            counter = requested + 1;
        return requested;
    }
};

} // namespace document
} // namespace selvora

#endif
