// Listening to one property of a control.
#pragma once

#include "platform/controls/control.hpp"

namespace quorrel {

/// Runs `work` each time the property has taken another value, by the user's hand or the
/// program's. Both outlive the control's signal.
template <typename T, typename Work>
void FollowProperty(Control& control, const Property<T>& property, Work work) {
    control.changed.Connect([&property, work, last = property()]() mutable {
        if (property() == last) return;
        last = property();
        work();
    });
}

}  // namespace quorrel
