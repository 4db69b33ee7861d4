#include "report/page/page.h"

#include "page_documents.h"

#include <chrono>

#include <nlohmann/json.hpp>

namespace XPJ {
namespace {
} // namespace
} // namespace XPJ
