// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/ReleaseReply.h"

#include "services/XmlReply.h"

namespace zib {
namespace {

std::optional<QString> attribute(pugi::xml_node element, const char* name)
{
    const pugi::xml_attribute found = element.attribute(name);
    return found ? std::optional(QString::fromUtf8(found.value())) : std::nullopt;
}

QString lastLabel(pugi::xml_node event)
{
    const auto names = elementsAt(event, "label/name");
    return names.empty() ? QString() : textOf(names.back());
}

} // namespace

ReleaseInfo releaseInfoOfReply(const QByteArray& reply)
{
    pugi::xml_document document;
    loadXmlReply(document, reply);
    ReleaseInfo info;
    for (const pugi::xml_node release : elementsAt(document, "metadata/release"))
        info.type = attribute(release, "type").value_or(QString());
    for (const pugi::xml_node event : elementsAt(document, "metadata/release/release-event-list/event"))
        info.releases.append({attribute(event, "date"), attribute(event, "country"), lastLabel(event)});
    for (const pugi::xml_node track : elementsAt(document, "metadata/release/track-list/track"))
        info.tracks.append({childText(track, "title").value_or(QString()),
                            childText(track, "duration").value_or(QString())});
    return info;
}

} // namespace zib
