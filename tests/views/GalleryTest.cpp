// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a control that complains, vanishes or is blurred at some ratio of pixels, a mark or text that can't
// be told from its ground in one of the schemes. Runs at several ratios.
#include "views/Theme.h"
#include "views/gallery/Shooting.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHash>
#include <QImage>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionButton>

#include <gtest/gtest.h>

#include <set>

namespace zib {
namespace {

QStringList complaints;

void keepComplaint(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    // The platform without a screen says of itself what it lacks.
    if (type != QtDebugMsg && type != QtInfoMsg &&
        !text.startsWith(QLatin1String("This plugin does not support")))
        complaints.append(text);
}

/// The best contrast that anything in the picture has to what there is most of.
double bestContrast(const QImage& picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    QRgb ground = 0;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour)
        if (colour.value() > counts.value(ground))
            ground = colour.key();
    double best = 1;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour)
        best = std::max(best, contrast(QColor(colour.key()), QColor(ground)));
    return best;
}

QImage partOf(const QPixmap& picture, const QRect& part)
{
    const qreal ratio = picture.devicePixelRatio();
    return picture.toImage().copy(
        QRectF(part.x() * ratio, part.y() * ratio, part.width() * ratio, part.height() * ratio).toRect());
}

class Gallery : public testing::TestWithParam<Scheme> {
  protected:
    Gallery()
    {
        complaints.clear();
        before_ = qInstallMessageHandler(keepComplaint);
        useScheme(GetParam());
    }
    ~Gallery() override { qInstallMessageHandler(before_); }

  private:
    QtMessageHandler before_;
};

TEST_P(Gallery, ShowsEveryControlWithoutAComplaint)
{
    ShownPages shown;
    std::set<QString> names;
    for (const auto& [demo, page] : shown.pages()) {
        SCOPED_TRACE(demo.name.toStdString());
        EXPECT_TRUE(names.insert(demo.name).second) << "its picture would replace another";
        const QPixmap picture = shown.shoot(*page);
        EXPECT_EQ(picture.size(), page->size() * qApp->devicePixelRatio());
        ASSERT_FALSE(page->samples().isEmpty());
        for (const Page::Sample& sample : page->samples()) {
            if (!sample.control->isEnabled())
                continue; // it may be faint
            EXPECT_GE(bestContrast(partOf(picture, sample.shown->geometry())), 3)
                << sample.caption.toStdString();
        }
    }
    EXPECT_EQ(complaints, QStringList());
}

TEST_P(Gallery, AMarkInABoxStandsOutFromTheBox)
{
    ShownPages shown;
    int boxes = 0;
    for (const auto& [demo, page] : shown.pages()) {
        if (demo.name != QLatin1String("boxes"))
            continue;
        const QPixmap picture = shown.shoot(*page);
        for (const Page::Sample& sample : page->samples()) {
            auto* box = qobject_cast<QAbstractButton*>(sample.control);
            if (!box->isChecked() || !box->isEnabled())
                continue;
            QStyleOptionButton option;
            option.initFrom(box);
            const auto part = box->inherits("QRadioButton") ? QStyle::SE_RadioButtonIndicator
                                                            : QStyle::SE_CheckBoxIndicator;
            const QRect indicator = box->style()->subElementRect(part, &option, box).adjusted(3, 3, -3, -3);
            EXPECT_GE(bestContrast(partOf(picture, indicator.translated(box->mapTo(page, QPoint())))), 4)
                << sample.caption.toStdString();
            ++boxes;
        }
    }
    EXPECT_GE(boxes, 4);
}

INSTANTIATE_TEST_SUITE_P(Schemes, Gallery,
                         testing::Values(Scheme::Light, Scheme::Dark, Scheme::LightContrast,
                                         Scheme::DarkContrast));

} // namespace
} // namespace zib

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    return RUN_ALL_TESTS();
}
