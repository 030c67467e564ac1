// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongTextFilter.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace zib {
namespace {

/// Letters that people type as others, although Unicode takes no accent off them.
QString plainLetters(QChar letter)
{
    switch (letter.unicode()) {
    case u'ø':
        return QStringLiteral("o");
    case u'đ':
    case u'ð':
        return QStringLiteral("d");
    case u'ł':
        return QStringLiteral("l");
    case u'æ':
        return QStringLiteral("ae");
    case u'œ':
        return QStringLiteral("oe");
    case u'ß':
        return QStringLiteral("ss");
    case u'þ':
        return QStringLiteral("th");
    case u'ı':
        return QStringLiteral("i");
    default:
        return letter;
    }
}

QByteArray folded(std::string_view utf8)
{
    const QString text = QString::fromUtf8(utf8.data(), qsizetype(utf8.size()))
                             .normalized(QString::NormalizationForm_KD)
                             .toCaseFolded();
    QString plain;
    plain.reserve(text.size());
    for (const QChar letter : text)
        if (letter.category() != QChar::Mark_NonSpacing)
            plain += plainLetters(letter);
    return plain.toUtf8();
}

bool isAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

void appendFolded(std::string& to, std::string_view utf8)
{
    if (!isAscii(utf8)) {
        to += folded(utf8).constData();
        return;
    }
    const std::size_t start = to.size();
    to.resize(start + utf8.size());
    std::ranges::transform(utf8, to.begin() + std::ptrdiff_t(start), [](char c) {
        const bool isUpper = c >= 'A' && c <= 'Z';
        return static_cast<char>(isUpper ? c + ('a' - 'A') : c);
    });
}

void SongTextFilter::setSongs(const QList<Record>& songs)
{
    constexpr std::size_t usualLength = 72;
    songs_ = songs;
    texts_.clear();
    texts_.reserve(std::size_t(songs.size()) * usualLength);
    ends_.clear();
    ends_.reserve(std::size_t(songs.size()));
    for (const Record& song : songs) {
        for (const RecordKey key : {keys::Name, keys::Artist, keys::Album, keys::Genre}) {
            appendFolded(texts_, song.utf8(key));
            texts_ += '\n';
        }
        if (const qint64 year = song.integer(keys::Year); year > 0)
            texts_ += std::to_string(year);
        texts_ += '\n';
        ends_.push_back(texts_.size());
    }
}

QList<Record> SongTextFilter::matching(const QString& text) const
{
    std::vector<std::string> words;
    const QStringList typed = text.simplified().split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : typed)
        appendFolded(words.emplace_back(), word.toUtf8().toStdString());
    if (words.empty())
        return songs_;
    // The longest word stands in the fewest songs. No word holds what parts the fields.
    std::iter_swap(words.begin(), std::ranges::max_element(words, {}, &std::string::size));

    QList<Record> found;
    const std::string_view all = texts_;
    std::size_t song = 0;
    for (std::size_t at = all.find(words.front()); at != std::string_view::npos;
         at = all.find(words.front(), ends_[song])) {
        song = std::size_t(std::upper_bound(ends_.begin() + std::ptrdiff_t(song), ends_.end(), at) -
                           ends_.begin());
        const std::size_t begin = song == 0 ? 0 : ends_[song - 1];
        const std::string_view own = all.substr(begin, ends_[song] - begin);
        if (std::all_of(words.begin() + 1, words.end(),
                        [own](const std::string& word) { return own.find(word) != own.npos; }))
            found.append(songs_[qsizetype(song)]);
    }
    return found;
}

} // namespace zib
