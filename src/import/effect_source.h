// Elements of the source as the effects take them.
#pragma once

#include "tree/object.h"

namespace XPJ {

// The translators of effects only read what they are given, through handles that could write.
class EffectSource : private ConstHandle {
public:
    static ObjectHandle Of(ConstHandle element)
    {
        return ObjectHandle(element.*(&EffectSource::object_));
    }
};

} // namespace XPJ
