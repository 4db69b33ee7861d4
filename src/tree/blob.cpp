#include "tree/blob.h"

#include "core/base64.h"
#include "core/numbers.h"

namespace XPJ {

void SetEncodedBlob(ObjectHandle node, Name dataKey, Name checksumKey, std::string_view bytes)
{
    if (bytes.empty())
        return;
    node.SetProperty(dataKey, EncodeBase64(bytes));
    node.SetProperty(checksumKey, UintToString(BlobChecksum(bytes)));
}

} // namespace XPJ
