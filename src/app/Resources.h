#ifndef SELVORA_APP_RESOURCES_H
#define SELVORA_APP_RESOURCES_H

namespace selvora {

// The pictures and the stylesheet live in the static library; whoever links it calls this once
// so that the resource names resolve.
void initResources();

} // namespace selvora

#endif
