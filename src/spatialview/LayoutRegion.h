#ifndef SELVORA_SPATIALVIEW_LAYOUTREGION_H
#define SELVORA_SPATIALVIEW_LAYOUTREGION_H

namespace selvora {
namespace spatialview {

// One region of a standard layout: its slot number and its rectangle as fractions of the
// canvas width and height.
struct LayoutRegion {
    int order;
    double left;
    double top;
    double width;
    double height;
};

} // namespace spatialview
} // namespace selvora

#endif
