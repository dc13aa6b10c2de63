#ifndef SELVORA_DOCUMENT_LAYERORDER_H
#define SELVORA_DOCUMENT_LAYERORDER_H

#include <QList>
#include <QString>

namespace selvora {
namespace document {

// Stacking order over objects that hold their layer as text (media and regions). Objects with
// an empty layer (sound) take no part. The searches keep the first object found on ties, so two
// objects of one layer make the ordered list repeat one of them; layers are meant to differ.
template <typename T> class LayerOrder {
public:
    explicit LayerOrder(const QList<T*>& items) : items_(items) {}

    T* first() const { return extreme(true); }
    T* last() const { return extreme(false); }

    // The nearest object below (back) or above (next); the extreme object is its own.
    T* back(T* item) const { return neighbour(item, true); }
    T* next(T* item) const { return neighbour(item, false); }

    QList<T*> layerNull() const {
        QList<T*> result;
        for (T* item : items_) {
            if (item->getLayer().isEmpty())
                result.append(item);
        }
        return result;
    }

    QList<T*> ordered() const {
        const int n = items_.size() - layerNull().size();
        QList<T*> result;
        if (n < 1)
            return result;
        result.append(first());
        while (result.size() < n)
            result.append(next(result.last()));
        return result;
    }

private:
    T* neighbour(T* item, bool below) const {
        T* result = below ? first() : last();
        if (!item || result == item)
            return result;
        const int layer = item->getLayer().toInt();
        for (T* other : items_) {
            if (other->getLayer().isEmpty())
                continue;
            const int l = other->getLayer().toInt();
            const int r = result->getLayer().toInt();
            if (below ? (l < layer && l > r) : (l > layer && l < r))
                result = other;
        }
        return result;
    }

    T* extreme(bool lowest) const {
        T* result = nullptr;
        for (T* item : items_) {
            if (item->getLayer().isEmpty())
                continue;
            if (!result) {
                result = item;
                continue;
            }
            const int l = item->getLayer().toInt();
            const int r = result->getLayer().toInt();
            if (lowest ? l < r : l > r)
                result = item;
        }
        return result;
    }

    QList<T*> items_;
};

} // namespace document
} // namespace selvora

#endif
