// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/RecordKeys.h"

#include <QByteArray>

#include <deque>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <unordered_map>

namespace zib {
namespace {

class KeyTable {
  public:
    KeyTable()
    {
#define ZIB_NAME(constant, name) intern(name);
        ZIB_RECORD_KEYS(ZIB_NAME)
#undef ZIB_NAME
    }

    std::uint32_t intern(std::string_view name)
    {
        {
            const std::shared_lock lock(mutex_);
            if (const auto known = ids_.find(name); known != ids_.end())
                return known->second;
        }
        const std::unique_lock lock(mutex_);
        if (const auto known = ids_.find(name); known != ids_.end())
            return known->second;
        const auto id = static_cast<std::uint32_t>(names_.size());
        names_.emplace_back(name);
        ids_.emplace(names_.back(), id);
        return id;
    }

    std::string_view name(std::uint32_t id) const
    {
        const std::shared_lock lock(mutex_);
        return names_.at(id);
    }

  private:
    mutable std::shared_mutex mutex_;
    std::deque<std::string> names_; // a deque never moves its strings, so the views into them last
    std::unordered_map<std::string_view, std::uint32_t> ids_;
};

KeyTable& keyTable()
{
    static KeyTable table;
    return table;
}

} // namespace

RecordKey RecordKey::named(std::string_view utf8)
{
    return RecordKey(keyTable().intern(utf8));
}

RecordKey RecordKey::named(QStringView name)
{
    const QByteArray utf8 = name.toUtf8();
    return named(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
}

std::string_view RecordKey::name() const
{
    return keyTable().name(id_);
}

} // namespace zib
