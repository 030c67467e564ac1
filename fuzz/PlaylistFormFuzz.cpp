// SPDX-License-Identifier: GPL-3.0-or-later
// What anybody may post as a playlist, and what is made of it for pages and addresses.
#include "catalogue/playlists/PlaylistForm.h"

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zib;
    const auto form = parsedPlaylistForm(QByteArrayView(data, qsizetype(size)));
    if (!form) {
        require(!form.error().isEmpty() && !form.error().startsWith(QLatin1String("OK")));
        return 0;
    }
    require(!form->name.isEmpty() && form->name.size() <= longestPlaylistName);
    require(form->description.size() <= longestPlaylistDescription && form->tags.size() <= mostPlaylistTags);
    require(!form->archive.isEmpty() && form->id.value_or(1) > 0);
    for (const auto& text : {form->tags.join(u','), form->name, form->description, form->artists})
        require(!text.contains(QChar(u'\0')));
    for (const auto& tag : form->tags)
        require(!tag.isEmpty() && !tag.contains(u','));
    require(!shownUserName(form->user).isEmpty());
    const QString address = addressName(form->name);
    require(!address.isEmpty());
    for (const QChar c : address)
        require(c == u'-' || (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z'));
    return 0;
}
