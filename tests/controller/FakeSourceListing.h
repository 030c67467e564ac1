// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/SourceListing.h"

#include <QStringList>

#include <set>

namespace zib {

/// A source list that keeps what it is told, as "operation row".
class FakeSourceListing : public SourceListing {
  public:
    int categoryOfSelectedNode() const override { return category; }
    bool isNodeEnabled(SourceType position) const override { return enabled.contains(position); }
    void setNodeEnabled(SourceType position, bool on) override
    {
        if (on)
            enabled.insert(position);
        else
            enabled.erase(position);
    }
    void reloadRow(SourceType position) override { told += QStringLiteral("reload %1").arg(int(position)); }
    void reloadRows() override { told += QStringLiteral("reload"); }
    void insertNode(SourceType group, int index, const QString& title, const QString& kindTag) override
    {
        told += QStringLiteral("insert %1/%2 %3 %4").arg(int(group)).arg(index).arg(title, kindTag);
    }
    void removeNode(SourceType group, int index) override
    {
        told += QStringLiteral("remove %1/%2").arg(int(group)).arg(index);
    }
    void changeItemView() override { told += QStringLiteral("change view"); }

    int category = int(SourceType::Library);
    std::set<SourceType> enabled;
    QStringList told;
};

} // namespace zib
