// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/InfoReply.h"

#include "catalogue/InfoText.h"

namespace zib {

namespace {

enum class Refusal { NotFound = 6, InvalidKey = 10 };

HttpReply refused(Refusal code, const char* message)
{
    pugi::xml_document document;
    auto root = declaredRoot(document, "lfm");
    root.append_attribute("status").set_value("failed");
    addText(root, "error", QLatin1String(message));
    root.child("error").append_attribute("code").set_value(int(code));
    return xmlReply(document, 400);
}

} // namespace

InfoReply::InfoReply()
{
    declaredRoot(document_, "lfm").append_attribute("status").set_value("ok");
}

std::optional<HttpReply> InfoReply::refusal(const HttpRequest& request)
{
    if (request.parameter(u"api_key").value_or(QString()).trimmed().isEmpty())
        return refused(Refusal::InvalidKey, "Invalid API key");
    return std::nullopt;
}

HttpReply InfoReply::notFound(const char* message)
{
    return refused(Refusal::NotFound, message);
}

void addImages(pugi::xml_node parent, const ImageAddresses& images)
{
    const std::pair<const char*, QString> sizes[] = {
        {"small", images.small}, {"medium", images.medium}, {"large", images.large}};
    for (const auto& [size, address] : sizes) {
        addText(parent, "image", address);
        parent.last_child().append_attribute("size").set_value(size);
    }
}

void addTags(pugi::xml_node parent, const char* name, const QStringList& tags, const QString& base)
{
    auto list = parent.append_child(name);
    for (const auto& tag : tags) {
        auto element = list.append_child("tag");
        addText(element, "name", tag);
        addText(element, "url", tagAddress(base, tag));
    }
}

void addContent(pugi::xml_node parent, const char* name, const QString& html)
{
    if (html.isEmpty())
        return;
    auto element = parent.append_child(name);
    addText(element, "summary", html.section(u'\n', 0, 0));
    // Clients count lines by their ends and lose a last one that has none.
    addText(element, "content", html.trimmed().replace(u'\n', QStringLiteral("\n\n")) + u'\n');
}

} // namespace zib
