// Names with functions that make an object: what the factories have in common.
#pragma once

#include <map>
#include <string>
#include <utility>

#include <ostrel/common/thread/Lock.h>
#include <ostrel/common/thread/SyncObject.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::Common::detail
{

/// Any thread. Names are compared byte by byte, and the first function given for a name stays.
template <class Product>
class CreatorRegistry
{
public:
    using Creator = Product* (*)();
    using Creators = std::map<std::string, Creator>;

    explicit CreatorRegistry(Creators creators = {}) : m_creators(std::move(creators)) {}

    /// False, and nothing changes, if the name is taken. A null function occupies the name.
    bool Add(std::string const& name, Creator creator)
    {
        CLock const lock(m_lock);
        return m_creators.emplace(name, creator).second;
    }

    /// A new object, which the caller owns; null for an unknown name and for a null function. The function runs under
    /// the lock, which its thread may take again.
    [[nodiscard]] Product* Create(std::string const& name)
    {
        CLock const lock(m_lock);
        auto const found = m_creators.find(name);
        return found != m_creators.end() && found->second != nullptr ? found->second() : nullptr;
    }

private:
    CSyncObject m_lock;
    Creators m_creators OSTREL_GUARDED_BY(m_lock);
};

} // namespace Ostrel::Common::detail
