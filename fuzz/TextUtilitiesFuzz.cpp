// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a text from outside that a decoder or the markup remover reads beyond its end, or decodes to
// something that does not encode back.
#include "services/utilities/Base64.h"
#include "services/utilities/StringUtilities.h"
#include "services/utilities/WildcardMatch.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const QString text = QString::fromUtf8(bytes);
    if (zib::URLDecodedString(zib::stringWithPercentEscape(text)) != text)
        std::abort();
    if (zib::dataWithBase64EncodedString(QString::fromLatin1(zib::base64EncodingWithLineLength(bytes, 76))) !=
        bytes)
        std::abort();
    zib::URLDecodedString(text);
    zib::dataWithBase64EncodedString(text);
    zib::timeString(text);
    if (zib::flattenHTMLIgnoringZibLinks(text).size() > text.size())
        std::abort();
    zib::stringByReplacingNewlineCharactersWithHTMLTags(text);
    if (!text.contains(u'?') && !text.contains(u'*') && !zib::WildcardMatch(text).matches(text))
        std::abort();
    return 0;
}
