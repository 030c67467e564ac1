// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/XmlReply.h"

#include <string>

namespace zib {

namespace {

class ByteWriter final : public pugi::xml_writer {
  public:
    void write(const void* data, size_t size) override
    {
        bytes.append(static_cast<const char*>(data), qsizetype(size));
    }
    QByteArray bytes;
};

bool fitsXml(char32_t c)
{
    return c == U'\t' || c == U'\n' || c == U'\r' || (c >= 0x20 && c < 0xd800) ||
           (c >= 0xe000 && c < 0xfffe) || (c >= 0x10000 && c < 0x110000);
}

} // namespace

QByteArray xmlText(const QString& text)
{
    QString clean;
    clean.reserve(text.size());
    for (const char32_t c : text.toUcs4()) {
        if (fitsXml(c))
            clean += QStringView(QChar::fromUcs4(c));
    }
    return clean.toUtf8();
}

void addText(pugi::xml_node parent, const char* name, const QString& text)
{
    parent.append_child(name).text().set(xmlText(text).constData());
}

XmlReply::XmlReply()
    : XmlReply(ServiceStatus::Success, QStringLiteral("Success"))
{
}

XmlReply::XmlReply(ServiceStatus status, const QString& message)
    : status_(status)
{
    auto element = declaredRoot(document_, "response").append_child("status");
    addText(element, "version", QStringLiteral("4.2"));
    addText(element, "code", QString::number(int(status)));
    addText(element, "message", message);
}

HttpReply XmlReply::http() const
{
    return xmlReply(document_, status_ == ServiceStatus::Success ? 200 : 400);
}

pugi::xml_node declaredRoot(pugi::xml_document& document, const char* name)
{
    auto declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    return document.append_child(name);
}

HttpReply xmlReply(const pugi::xml_document& document, int httpStatus)
{
    ByteWriter writer;
    document.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return {.status = httpStatus,
            .contentType = "text/xml; charset=utf-8",
            .body = writer.bytes,
            .headers = {{"Cache-Control", "no-store"}}};
}

} // namespace zib
