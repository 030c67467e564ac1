// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/PicturePainter.h"

#include "catalogue/demo/PictureScenes.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QLinearGradient>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace zib::demo {
namespace {

constexpr double longSide = 1200; ///< pixels
constexpr int tileSide = 300;     ///< pixels, wide and high
constexpr int quality = 86;

using Paint = void (*)(Scene&);

struct SceneForm {
    Paint paint;
    double width; ///< of the height
};

constexpr SceneForm portrait{paintPortrait, 1};

bool any(const QStringList& tags, std::initializer_list<const char*> of)
{
    return std::ranges::any_of(of, [&tags](const char* tag) { return tags.contains(QLatin1String(tag)); });
}

/// The first shows faces, the others come in an order of the artist's own.
std::vector<SceneForm> scenesOf(const Sitters& sitters)
{
    const QStringList& tags = sitters.tags;
    std::vector<SceneForm> scenes{{paintStage, 1.5},      {paintWalk, 1.5}, {paintCloseUp, 0.8},
                                  {paintMicrophone, 0.8}, {paintRecord, 1}, {paintWindows, 0.8},
                                  {paintTable, 1.5}};
    if (any(tags, {"folk", "acoustic", "blues", "bossa nova", "post-rock", "dream pop"}))
        scenes.push_back({paintGuitar, 0.8});
    if (any(tags, {"piano", "classical", "jazz", "waltz", "synthwave", "ambient"}))
        scenes.push_back({paintKeys, 1.5});
    if (any(tags, {"electronic", "synthwave", "techno", "chillout"}))
        scenes.push_back({paintMachine, 1.5});
    if (any(tags, {"lo-fi", "dream pop", "chillout", "ambient"}))
        scenes.push_back({paintCassette, 1.5});
    Random random(sitters.seed);
    for (std::size_t i = scenes.size(); i > 1; --i)
        std::swap(scenes[i - 1], scenes[static_cast<std::size_t>(random.below(static_cast<int>(i)))]);
    scenes.insert(scenes.begin(), portrait);
    return scenes;
}

std::vector<Person> peopleOf(const Sitters& sitters, const Tones& tones)
{
    constexpr std::array skins{0xfff3d3b6U, 0xffe0ae88U, 0xffb97f58U, 0xff7d5138U};
    constexpr std::array hairs{0xff2a2322U, 0xff5a3a2aU, 0xff8f5a34U, 0xffc9a063U, 0xff7b7773U, 0xff983f2bU};
    constexpr int hairStyles = 7;
    constexpr int leastContrast = 45; // between skin and hair, of 255
    Random random(sitters.seed ^ 0x51773e25U);
    const int firstStyle = random.below(hairStyles);
    const std::array coats{tones.ink, tones.shade, mixed(tones.accent, tones.ink, 0.25),
                           mixed(tones.shade, tones.ink, 0.5)};
    std::vector<Person> people;
    for (int i = 0; i < std::max(sitters.members, 1); ++i) {
        Person person;
        person.skin = mixed(QColor::fromRgb(random.pick(skins)), tones.light, 0.12);
        person.hair = mixed(QColor::fromRgb(random.pick(hairs)), tones.ink, 0.18);
        if (std::abs(qGray(person.hair.rgb()) - qGray(person.skin.rgb())) < leastContrast)
            person.hair = mixed(person.hair, qGray(person.skin.rgb()) > 110 ? tones.ink : tones.paper, 0.6);
        person.hairStyle = (firstStyle + i * 3) % hairStyles; // no two alike
        person.coat = coats.at(static_cast<std::size_t>(i + random.below(2)) % coats.size());
        person.shirt = i % 2 == 0 ? tones.paper : mixed(tones.accent, tones.paper, 0.3);
        person.glasses = random.chance(0.3F);
        person.beard = (person.hairStyle == 0 || person.hairStyle == 5) && random.chance(0.6F);
        person.height = static_cast<double>(random.between(0.93F, 1.05F));
        people.push_back(person);
    }
    return people;
}

/// The corners a little darker, and a grain over all, which also keeps slow gradients from showing steps.
void finish(QImage& image, Random random)
{
    {
        QPainter painter(&image);
        QRadialGradient corners(image.width() / 2.0, image.height() / 2.0,
                                0.62 * std::hypot(image.width(), image.height()));
        corners.setColorAt(0.55, QColor(0, 0, 0, 0));
        corners.setColorAt(1, QColor(0, 0, 0, 70));
        painter.fillRect(image.rect(), corners);
    }
    constexpr int strength = 3;
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::uint64_t bits = 0;
        for (int x = 0; x < image.width(); ++x) {
            if (x % 16 == 0)
                bits = random.next();
            const int grain = static_cast<int>(bits & 7U) - strength;
            bits >>= 4U;
            const auto grained = [grain](int value) { return std::clamp(value + grain, 0, 255); };
            line[x] = qRgb(grained(qRed(line[x])), grained(qGreen(line[x])), grained(qBlue(line[x])));
        }
    }
}

} // namespace

Tones::Tones(const Palette& palette)
{
    std::array<QColor, 4> grounds;
    for (std::size_t i = 0; i < grounds.size(); ++i)
        grounds.at(i) = QColor::fromRgb(palette.at(i));
    std::ranges::sort(grounds,
                      [](const QColor& a, const QColor& b) { return qGray(a.rgb()) > qGray(b.rgb()); });
    paper = grounds[0];
    light = grounds[1];
    shade = grounds[2];
    ink = grounds[3];
    accent = QColor::fromRgb(palette[4]);
}

QColor mixed(const QColor& one, const QColor& other, double share)
{
    const auto part = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {part(one.red(), other.red()), part(one.green(), other.green()), part(one.blue(), other.blue())};
}

QColor faded(QColor colour, double opacity)
{
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

void fillAcross(Scene& scene, const QColor& top, const QColor& bottom)
{
    QLinearGradient ground(scene.frame.topLeft(), scene.frame.bottomRight());
    ground.setColorAt(0, top);
    ground.setColorAt(1, bottom);
    scene.canvas.painter.fillRect(scene.frame, ground);
}

void layDown(QPainter& painter, const QPainterPath& thing, const QBrush& brush, const QColor& shadow,
             double depth)
{
    painter.setBrush(faded(shadow, 0.16));
    for (int i = 3; i > 0; --i)
        painter.drawPath(thing.translated(depth * i / 3, depth * i / 3 * 1.2));
    painter.setBrush(brush);
    painter.drawPath(thing);
}

QPainterPath rounded(const QRectF& rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

QPainterPath circle(const QPointF& middle, double radius)
{
    QPainterPath path;
    path.addEllipse(middle, radius, radius);
    return path;
}

int picturesOf(const Sitters& sitters)
{
    return static_cast<int>(scenesOf(sitters).size());
}

QByteArray paintPicture(const Sitters& sitters, int number, PictureSize size)
{
    const auto scenes = scenesOf(sitters);
    if (number < 1 || number > static_cast<int>(scenes.size()))
        return {};
    const SceneForm& form = scenes[static_cast<std::size_t>(number - 1)];
    const QRectF frame(0, 0, longSide * std::min(1.0, form.width), longSide / std::max(1.0, form.width));
    const bool whole = size == PictureSize::Whole;
    QImage image(whole ? frame.size().toSize() : QSize(tileSide, tileSide), QImage::Format_RGB32);
    Random random(sitters.seed + static_cast<std::uint64_t>(number));
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        if (!whole) {
            const double scale = tileSide / std::min(frame.width(), frame.height());
            painter.translate(tileSide / 2.0, tileSide / 2.0);
            painter.scale(scale, scale);
            painter.translate(-frame.center());
        }
        const Palette& palette = paletteOf(sitters.tags);
        const Tones tones(palette);
        Canvas canvas{painter, palette, random};
        Scene scene{canvas, tones, sitters, frame, peopleOf(sitters, tones)};
        form.paint(scene);
    }
    finish(image, random);
    QByteArray file;
    QBuffer buffer(&file);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(quality);
    return writer.write(image) ? file : QByteArray();
}

} // namespace zib::demo
