// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/TextOrder.h"

#include <algorithm>
#include <iterator>
#include <thread>

namespace zib {
namespace {

/// Room between two labels, so that what comes later finds a number between them.
constexpr TextOrder::Label gap = TextOrder::Label(1) << 32U;

/// In the locale "C" people have chosen no language, and a collator would compare codes.
QLocale collationLocale(const QLocale& locale)
{
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

struct Keyed {
    QCollatorSortKey key;
    std::uint32_t number;

    friend bool operator<(const Keyed& a, const Keyed& b) { return a.key < b.key; }
};

/// The keys of the texts from one number to another, without those of empty ones.
std::vector<Keyed> sortedPart(const TextCollation& collation, std::size_t from, std::size_t to,
                              const TextOrder::Texts& texts)
{
    std::vector<Keyed> keys;
    keys.reserve(to - from);
    for (std::size_t number = from; number < to; ++number)
        if (const std::string_view text = texts(number); !text.empty())
            keys.push_back({collation.key(text), static_cast<std::uint32_t>(number)});
    // By merging: a comparison costs far more than a move. Equal texts stay in the order of their numbers.
    std::stable_sort(keys.begin(), keys.end());
    return keys;
}

std::vector<Keyed> sortedKeys(const TextCollation& collation, std::size_t count,
                              const TextOrder::Texts& texts)
{
    constexpr std::size_t fewTexts = 4096; // no thread is worth its start for those
    if (count < fewTexts)
        return sortedPart(collation, 0, count, texts);
    std::vector<Keyed> later;
    std::thread helper(
        [&, own = collation.forAnotherThread()] { later = sortedPart(own, count / 2, count, texts); });
    std::vector<Keyed> keys = sortedPart(collation, 0, count / 2, texts);
    helper.join();
    const auto middle = std::ptrdiff_t(keys.size());
    std::ranges::move(later, std::back_inserter(keys));
    std::inplace_merge(keys.begin(), keys.begin() + middle, keys.end());
    return keys;
}

} // namespace

TextCollation::TextCollation(const QLocale& locale)
    : collator_(collationLocale(locale))
{
    collator_.setCaseSensitivity(Qt::CaseInsensitive);
    collator_.setNumericMode(true);
}

QCollatorSortKey TextCollation::key(std::string_view utf8) const
{
    return collator_.sortKey(QString::fromUtf8(utf8.data(), qsizetype(utf8.size())));
}

void TextOrder::build(std::size_t count, const Texts& texts)
{
    const std::vector<Keyed> keys = sortedKeys(collation_, count, texts);
    labels_.assign(count, noText);
    order_.clear();
    order_.reserve(keys.size());
    Label label = 0;
    for (std::size_t place = 0; place < keys.size(); ++place) {
        if (place == 0 || keys[place - 1].key < keys[place].key)
            label += gap;
        labels_[keys[place].number] = label;
        order_.push_back(keys[place].number);
    }
}

void TextOrder::change(std::vector<std::uint32_t> numbers, const Texts& texts)
{
    if (numbers.empty())
        return;
    std::ranges::sort(numbers);
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    labels_.resize(std::max<std::size_t>(labels_.size(), numbers.back() + 1), noText);
    // First all leave: among the rest, whose texts are as they were, a place can be searched for.
    for (const std::uint32_t number : numbers)
        leave(number);
    for (const std::uint32_t number : numbers) {
        if (!enter(number, texts)) {
            build(labels_.size(), texts);
            return;
        }
    }
}

void TextOrder::leave(std::uint32_t number)
{
    if (labels_[number] == noText)
        return;
    const auto place = std::ranges::lower_bound(order_, labels_[number], {},
                                                [this](std::uint32_t other) { return labels_[other]; });
    order_.erase(std::find(place, order_.end(), number));
    labels_[number] = noText;
}

bool TextOrder::enter(std::uint32_t number, const Texts& texts)
{
    const std::string_view text = texts(number);
    if (text.empty())
        return true;
    const QCollatorSortKey key = collation_.key(text);
    const auto next = std::ranges::partition_point(
        order_, [&](std::uint32_t other) { return collation_.key(texts(other)) < key; });
    const Label before = next != order_.begin() ? labels_[*std::prev(next)] : 0;
    Label label = before + gap;
    if (next != order_.end()) {
        const Label after = labels_[*next];
        const bool isEqual = !(key < collation_.key(texts(*next)));
        label = isEqual ? after : before + (after - before) / 2;
    }
    if (label == before)
        return false;
    labels_[number] = label;
    order_.insert(next, number);
    return true;
}

} // namespace zib
