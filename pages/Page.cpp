// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Page.h"

namespace zib {

QLatin1String pageName(Page page)
{
    switch (page) {
    case Page::Artist:
        return QLatin1String("artist");
    case Page::Album:
        return QLatin1String("album");
    case Page::Track:
        return QLatin1String("track");
    case Page::Images:
        return QLatin1String("images");
    case Page::Videos:
        return QLatin1String("videos");
    case Page::Blogs:
        return QLatin1String("blogs");
    case Page::News:
        return QLatin1String("news");
    case Page::Reviews:
        return QLatin1String("reviews");
    }
    return QLatin1String();
}

QString menuLink(Page page)
{
    return QStringLiteral("<a id=\"%1\" href=\"zib://current/%1\"> <img src=\"b_%1_active.png\" "
                          "class=\"gradualfader\"> </a>")
        .arg(pageName(page));
}

QString emptyMenuLink(Page page)
{
    return QStringLiteral("<a id=\"%1\" href=\"zib://current/%1\"></a>").arg(pageName(page));
}

QString selectedMenuCell(Page page)
{
    return QStringLiteral(
               "<div id=\"selected\"> <center><img src=\"b_%1_active.png\" class=\"go-left\"></center> "
               "</div>")
        .arg(pageName(page));
}

} // namespace zib
