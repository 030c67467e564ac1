// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/XmlReply.h"

#include "services/Log.h"

#include <QCoreApplication>

#include <string>

namespace zib {

void loadXmlReply(pugi::xml_document& document, const QByteArray& bytes)
{
    document.reset();
    if (bytes.size() > maximumXmlBytes) {
        qCWarning(servicesLog, "Reply of %lld bytes is too long", static_cast<long long>(bytes.size()));
        return;
    }
    const pugi::xml_parse_result result = document.load_buffer(bytes.constData(), size_t(bytes.size()));
    if (!result) {
        qCWarning(servicesLog, "Reply is not XML: %s at byte %lld", result.description(),
                  static_cast<long long>(result.offset));
        document.reset(); // what was read before the fault is not to be trusted
    }
}

QString textOf(pugi::xml_node element)
{
    // A walk by neighbours instead of recursion: how deep a reply nests is the sender's choice.
    std::string text;
    pugi::xml_node node = element.first_child();
    while (node) {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            text += node.value();
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node != element && !node.next_sibling())
            node = node.parent();
        if (node == element)
            break;
        node = node.next_sibling();
    }
    return QString::fromStdString(text);
}

std::optional<QString> childText(pugi::xml_node element, const char* name)
{
    const pugi::xml_node child = element.child(name);
    if (!child)
        return std::nullopt;
    return textOf(child);
}

std::optional<QString> textAt(pugi::xml_node node, const char* path)
{
    const pugi::xml_node element = node.select_node(path).node();
    return element ? std::optional(textOf(element)) : std::nullopt;
}

std::vector<pugi::xml_node> elementsAt(pugi::xml_node node, const char* path)
{
    std::vector<pugi::xml_node> elements;
    for (const pugi::xpath_node& found : node.select_nodes(path)) {
        if (elements.size() == maximumEntries)
            break;
        elements.push_back(found.node());
    }
    return elements;
}

QString statusMessage(const pugi::xml_document& reply)
{
    return childText(reply.child("response").child("status"), "message")
        .value_or(QCoreApplication::translate("WebServiceClient", "No server response"));
}

} // namespace zib
