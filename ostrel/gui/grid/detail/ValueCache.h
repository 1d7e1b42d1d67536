// What a row remembers of its object's values and texts where the notifying thread takes snapshots of them.
#pragma once

#include <map>
#include <string>

#include <ostrel/common/value/Value.h>
#include <ostrel/platform/base/String.h>

namespace Ostrel::GUI::Detail
{

struct CachedValue
{
    Common::CValue value;
    std::string stlText;
    CString mfcText;
};

/// By field identifier.
using ValueCache = std::map<long, CachedValue>;

} // namespace Ostrel::GUI::Detail
