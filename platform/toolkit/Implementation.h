#pragma once

#include "toolkit/DVFactory2.h"

namespace DOVA {

/// Has the factory make the implementation of a front object under construction; without a factory
/// there is none.
template <class Request, class Front, class... More>
void implement(const DVFactory2* factory, Request DVFactory2::*request, Front* front,
               DVObject* parent, More... more) {
    if (factory) {
        (factory->*request).emit(front, front->emitters(), parent, more...);
    }
}

/// The same for an object that appears in its parent.
template <class Request, class Front, class... More>
void implementBelow(DVObject* parent, const DVFactory2* factory, Request DVFactory2::*request,
                    Front* front, More... more) {
    implement(factory, request, front, parent, more...);
    if (parent) {
        front->setParent(parent);
    }
}

}  // namespace DOVA
