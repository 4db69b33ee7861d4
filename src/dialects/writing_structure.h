// The order and completeness of elements that other programs rely on.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Puts the sequences of a document that is to hold one directly into `xmeml`.
void PutSequenceFirst(DialectPass& pass);

// Labels the channels of mono audio as such: some readers go by the labels.
void LabelMonoAudio(DialectPass& pass);

} // namespace XPJ
