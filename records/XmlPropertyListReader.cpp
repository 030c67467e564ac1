// SPDX-License-Identifier: GPL-3.0-or-later
// The markup: tags and texts.
#include "records/PropertyListReaders.h"

#include "records/Utf8.h"

#include <charconv>
#include <cstring>

namespace zib {
namespace {

/// The characters that stand for themselves in a text and need no look.
constexpr std::array<bool, 256> plainCharacters = [] {
    std::array<bool, 256> plain{};
    for (unsigned c = 1; c < 0x80; ++c)
        plain[c] = c != '<' && c != '&' && c != '\r';
    return plain;
}();

constexpr bool isPlain(char c)
{
    return plainCharacters[static_cast<unsigned char>(c)];
}

constexpr std::string_view elementNames[] = {"key",   "dict",  "real",  "true",   "date",   "data",
                                             "array", "false", "plist", "string", "integer"};

} // namespace

XmlPropertyListReader::XmlPropertyListReader(std::string_view text, const TableTarget* target)
    : begin_(text.data())
    , at_(begin_)
    , end_(begin_ + text.size())
    , target_(target)
{
}

XmlPropertyListReader::XmlPropertyListReader(std::vector<char> beginning, const ByteSource& source,
                                             const TableTarget* target)
    : XmlPropertyListReader(std::string_view(beginning.data(), beginning.size()), target)
{
    source_ = &source;
    window_ = std::move(beginning); // which stays where it is
}

bool XmlPropertyListReader::readOn()
{
    if (source_ == nullptr)
        return false;
    const auto kept = static_cast<std::size_t>(end_ - at_);
    passed_ += static_cast<std::size_t>(at_ - begin_);
    std::memmove(window_.data(), at_, kept);
    if (kept > window_.size() / 2) // so much is wanted at once
        window_.resize(window_.size() * 2);
    const std::size_t count = (*source_)(std::span(window_).subspan(kept));
    if (count == 0)
        source_ = nullptr;
    begin_ = at_ = window_.data();
    end_ = begin_ + kept + count;
    return count > 0;
}

bool XmlPropertyListReader::fail(const char* text)
{
    if (error_.isEmpty())
        error_ = QStringLiteral("%1 at byte %2")
                     .arg(QLatin1String(text))
                     .arg(passed_ + static_cast<std::size_t>(at_ - begin_));
    return false;
}

bool XmlPropertyListReader::startsWith(std::string_view text) const
{
    return std::string_view(at_, static_cast<std::size_t>(end_ - at_)).starts_with(text);
}

bool XmlPropertyListReader::skipPast(std::string_view end, const char* otherwise)
{
    const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
    const std::size_t found = rest.find(end);
    if (found == std::string_view::npos)
        return fail(otherwise);
    at_ += found + end.size();
    return true;
}

/// Skips the declaration with its inner subset. Entities that it declares are unknown ever after, so none can
/// unfold.
bool XmlPropertyListReader::skipDoctype()
{
    int brackets = 0;
    while (at_ != end_) {
        if (startsWith("<!--")) {
            if (!skipPast("-->", "comment without end"))
                return false;
            continue;
        }
        const char c = *at_++;
        if (c == '"' || c == '\'') {
            if (!skipPast(std::string_view(&c, 1), "quote without end"))
                return false;
        } else if (c == '[') {
            ++brackets;
        } else if (c == ']') {
            --brackets;
        } else if (c == '>' && brackets <= 0) {
            return true;
        }
    }
    return fail("document type without end");
}

bool XmlPropertyListReader::skipToTag()
{
    for (;;) {
        while (at_ != end_ && isBlank(*at_))
            ++at_;
        if (at_ == end_)
            return true;
        if (*at_ != '<')
            return fail("text where markup belongs");
        if (end_ - at_ < 2 || (at_[1] != '!' && at_[1] != '?'))
            return true;
        bool skipped = false;
        if (startsWith("<!--"))
            skipped = skipPast("-->", "comment without end");
        else if (at_[1] == '?')
            skipped = skipPast("?>", "processing instruction without end");
        else if (startsWith("<!DOCTYPE"))
            skipped = skipDoctype();
        else
            fail("unknown markup");
        if (!skipped)
            return false;
    }
}

bool XmlPropertyListReader::readElementName(Element& element)
{
    const char* const name = at_;
    while (at_ != end_ && *at_ >= 'a' && *at_ <= 'z')
        ++at_;
    const std::string_view view(name, static_cast<std::size_t>(at_ - name));
    for (std::size_t i = 0; i < std::size(elementNames); ++i) {
        if (view == elementNames[i]) {
            element = static_cast<Element>(i);
            return true;
        }
    }
    return fail("unknown element");
}

bool XmlPropertyListReader::readTag(Tag& tag)
{
    if (!skipToTag())
        return false;
    if (at_ == end_)
        return fail("unexpected end");
    ++at_;
    tag.closing = at_ != end_ && *at_ == '/';
    if (tag.closing)
        ++at_;
    if (!readElementName(tag.element))
        return false;
    tag.empty = false;
    if (at_ != end_ && *at_ == '>') {
        ++at_;
        return true;
    }
    // blanks and attributes, which say nothing here
    while (at_ != end_ && *at_ != '>') {
        const char c = *at_++;
        if (c == '<')
            return fail("tag without end");
        if ((c == '"' || c == '\'') && !skipPast(std::string_view(&c, 1), "quote without end"))
            return false;
        tag.empty = c == '/' && at_ != end_ && *at_ == '>';
    }
    if (at_ == end_)
        return fail("tag without end");
    ++at_;
    return !(tag.closing && tag.empty) || fail("malformed tag");
}

bool XmlPropertyListReader::readOpening(Element element)
{
    Tag tag;
    return readTag(tag) && ((tag.element == element && !tag.closing && !tag.empty) || fail("wrong element"));
}

bool XmlPropertyListReader::readClosing(Element element)
{
    Tag tag;
    return readTag(tag) && ((tag.element == element && tag.closing) || fail("wrong closing tag"));
}

bool XmlPropertyListReader::read(PropertyValue& root)
{
    Tag tag;
    const auto readHead = [this, &tag] {
        if (startsWith("\xEF\xBB\xBF"))
            at_ += 3;
        if (!skipToTag())
            return false;
        if (at_ == end_)
            return fail("empty document");
        return readOpening(Element::Plist) && readTag(tag);
    };
    if (!readWhole(readHead))
        return false;
    const bool isDictionary = tag.element == Element::Dict && !tag.closing;
    if (!(isDictionary ? readRootDictionary(tag, root)
                       : readWhole([this, &tag, &root] { return readValue(tag, 0, root); })))
        return false;
    while (readOn()) { // what follows is short, or is an error
    }
    return readClosing(Element::Plist) && skipToTag() && (at_ == end_ || fail("content after the end"));
}

bool XmlPropertyListReader::readText(const Tag& tag, std::string_view& text)
{
    text = {};
    if (tag.empty)
        return true;
    const char* const start = at_;
    while (at_ != end_ && isPlain(*at_))
        ++at_;
    text = std::string_view(start, static_cast<std::size_t>(at_ - start));
    const std::string_view name = elementNames[static_cast<std::size_t>(tag.element)];
    const std::size_t closing = name.size() + 3;
    const auto isClosing = [this, name, closing] {
        return static_cast<std::size_t>(end_ - at_) >= closing && at_[0] == '<' && at_[1] == '/' &&
               std::memcmp(at_ + 2, name.data(), name.size()) == 0 && at_[closing - 1] == '>';
    };
    if (isClosing()) {
        at_ += closing;
        return true;
    }
    at_ = start;
    return readMixedText(text) && readClosing(tag.element);
}

/// A text with characters that want a look, references, comments or literal sections, up to the next tag.
bool XmlPropertyListReader::readMixedText(std::string_view& text)
{
    scratch_.clear();
    while (at_ != end_) {
        if (*at_ == '&') {
            if (!readReference())
                return false;
        } else if (*at_ != '<') {
            if (!appendRun())
                return false;
        } else if (startsWith("<![CDATA[")) {
            at_ += 9;
            const char* const start = at_;
            if (!skipPast("]]>", "literal section without end"))
                return false;
            scratch_.append(start, at_ - 3);
        } else if (startsWith("<!--")) {
            if (!skipPast("-->", "comment without end"))
                return false;
        } else {
            if (!isUtf8(scratch_))
                return fail("text is not UTF-8");
            text = scratch_;
            return true;
        }
    }
    return fail("unexpected end");
}

/// Text up to markup or a reference; every line end becomes a line feed.
bool XmlPropertyListReader::appendRun()
{
    while (at_ != end_ && *at_ != '<' && *at_ != '&') {
        if (*at_ == '\r') {
            scratch_.push_back('\n');
            ++at_;
            if (at_ != end_ && *at_ == '\n')
                ++at_;
        } else if (*at_ == '\0') {
            return fail("illegal character");
        } else {
            scratch_.push_back(*at_++);
        }
    }
    return true;
}

bool XmlPropertyListReader::readReference()
{
    const std::string_view rest(at_, std::min<std::size_t>(static_cast<std::size_t>(end_ - at_), 16));
    const std::size_t semicolon = rest.find(';');
    if (semicolon == std::string_view::npos)
        return fail("reference without end");
    const std::string_view name = rest.substr(1, semicolon - 1);
    static constexpr std::pair<std::string_view, char> named[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [entity, character] : named) {
        if (name == entity) {
            scratch_.push_back(character);
            at_ += semicolon + 1;
            return true;
        }
    }
    if (name.size() < 2 || name[0] != '#')
        return fail("unknown entity");
    const bool hexadecimal = name[1] == 'x';
    const char* const first = name.data() + (hexadecimal ? 2 : 1);
    const char* const last = name.data() + name.size();
    std::uint32_t code = 0;
    const auto [stopped, error] = std::from_chars(first, last, code, hexadecimal ? 16 : 10);
    if (error != std::errc() || stopped != last || !appendUtf8(scratch_, code))
        return fail("wrong character reference");
    at_ += semicolon + 1;
    return true;
}

} // namespace zib
