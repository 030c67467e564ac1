// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCollator>
#include <QLocale>
#include <QString>

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace zib {

/// How people of a language sort texts: without regard to case, and numbers in them by their value. Main
/// thread.
class TextCollation {
  public:
    explicit TextCollation(const QLocale& locale = QLocale());
    [[nodiscard]] QCollatorSortKey key(std::string_view utf8) const;

    /// An equal one that another thread may use.
    [[nodiscard]] TextCollation forAnotherThread() const { return TextCollation(collator_.locale()); }

  private:
    QCollator collator_;
};

/// The order of many texts that rarely change, as a number per text: making the keys of 100,000 takes longer
/// than a click may. The keys themselves are not kept, for they are larger than the texts.
class TextOrder {
  public:
    using Label = std::uint64_t;
    /// An empty text's: it has no place in the order, and comes after all others.
    static constexpr Label noText = UINT64_MAX;
    /// The text of that number, as it is now. Asked on several threads at once while an order is built.
    using Texts = std::function<std::string_view(std::size_t)>;

    explicit TextOrder(const TextCollation& collation)
        : collation_(collation)
    {
    }

    /// Takes the texts of the numbers 0 to count - 1.
    void build(std::size_t count, const Texts& texts);
    /// The texts of those numbers have changed, or are new; all others are as they were.
    void change(std::vector<std::uint32_t> numbers, const Texts& texts);

    /// Equal for texts that count as equal, otherwise in their order.
    [[nodiscard]] Label label(std::size_t number) const { return labels_[number]; }

  private:
    void leave(std::uint32_t number);
    /// False when there is no number left between its neighbours'.
    bool enter(std::uint32_t number, const Texts& texts);

    const TextCollation& collation_;
    std::vector<Label> labels_;
    std::vector<std::uint32_t> order_; // the numbers of all texts that are not empty
};

} // namespace zib
