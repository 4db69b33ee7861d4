// What a document does not take of an effect's parameters, in remarks.
//
// A parameter that is not written is lost unless it has the value that changes nothing; of a
// parameter without a row that is 0. Keyframes lose their interpolation, and what they are behind
// a frame.
#pragma once

#include "effects/effect_row.h"
#include "tree/object.h"

#include <span>

namespace XPJ {

// An effect as remarks name it: the name that the host shows, and the match name.
RemarkSubject SubjectOf(ConstHandle component);

// True for a component that its user named.
bool HasOwnName(ConstHandle component);

// Remarks about all parameters of a component that is written by the rows of its effect.
// `handled` is the `ParameterID` of one that the caller writes in its own way; 0: none.
void ReportParams(const EffectContext& context, std::span<const ParamRow> rows,
                  ConstHandle component, int handled = 0);

// About one that is not written. `row` may be null.
void ReportUnwritten(const EffectContext& context, RemarkSubject subject, const ParamRow* row,
                     ConstHandle param);
// About the keyframes of one that is.
void ReportKeyframes(const EffectContext& context, RemarkSubject subject, ConstHandle param);

} // namespace XPJ
