// Effects that documents have no terms for: their parameters are carried with the fields of the
// project, and come back unchanged when the document does.
#pragma once

#include "effects/effect_row.h"

#include <string_view>

namespace XPJ {

// The name that the user gave an effect, else that of its kind.
std::string_view UserName(ConstHandle component);

// Fills a new `effect` with all parameters of a component.
void KeepParams(const EffectContext& context, const XmemlEffect& head, ConstHandle component,
                ObjectHandle effect);

// A carried `parameter` as one of the class.
ObjectHandle MakeKeptParam(Document& document, ConstHandle parameter, std::string_view classId);
// One that holds bytes. `control` is that of a parameter which states none. Null without bytes.
ObjectHandle MakeKeptBlob(Document& document, ConstHandle parameter, std::string_view name,
                          std::string_view control);

// The Transform effect. Points are in elements of scalars.
bool TransformToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                        Components& components);
void TransformToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                      ObjectHandle effect);

} // namespace XPJ
