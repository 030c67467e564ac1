// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/BaseNode.h"

namespace zib {

/// What every row of the source list is.
class ChildNode : public BaseNode {
  public:
    inline static const QString noDescription = QStringLiteral("- empty description -");

    explicit ChildNode(bool isLeaf = false)
        : BaseNode(isLeaf)
    {
        setNodeTitle(QString());
    }

    /// What the row is for, in a sentence; noDescription where nobody said.
    [[nodiscard]] const QString& description() const { return description_; }
    void setDescription(const QString& description) { description_ = description; }
    /// Whether the row can be selected.
    [[nodiscard]] bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled) { enabled_ = enabled; }

  private:
    QString description_ = noDescription;
    bool enabled_ = true;
};

} // namespace zib
