// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Effects.h"

#include "catalogue/demo/Maths.h"
#include "catalogue/demo/Wavetables.h"

#include <algorithm>
#include <cmath>

namespace zib::demo {
namespace {

// Too small to be heard and large enough to keep a dying loop out of the slow range of tiny numbers.
constexpr float whisper = 1.0e-18F;

std::size_t frames(double seconds)
{
    return static_cast<std::size_t>(seconds * sampleRate);
}

} // namespace

void Stereo::clear()
{
    std::fill(left.begin(), left.end(), 0.0F);
    std::fill(right.begin(), right.end(), 0.0F);
}

void Stereo::add(const Stereo& other, float gain)
{
    for (std::size_t i = 0; i < other.left.size(); ++i) {
        left[i] += gain * other.left[i];
        right[i] += gain * other.right[i];
    }
}

Reverb::Reverb(float size)
    : damping_(0.42F - 0.12F * size)
{
    constexpr std::array<std::size_t, lineCount> lengths = {1201, 1423, 1637, 1867, 2081, 2311, 2539, 2777};
    const double seconds = 0.9 + 3.4 * size;
    for (std::size_t i = 0; i < lineCount; ++i) {
        const auto length =
            static_cast<std::size_t>(static_cast<double>(lengths.at(i)) * (0.8 + 0.6 * size)) | 1U;
        lines_.at(i).samples.resize(length);
        gains_.at(i) = static_cast<float>(
            powerOfTwo(-9.965784284662087 * static_cast<double>(length) / (seconds * sampleRate)) *
            0.35355339059327373);
    }
    constexpr std::array<std::size_t, 4> diffusion = {142, 379, 107, 277};
    for (std::size_t i = 0; i < diffusion.size(); ++i)
        diffusers_.at(i).samples.resize(diffusion.at(i));
    before_.samples.resize(2 * frames(0.018));
}

float Reverb::diffuse(Line& line, float in)
{
    float& slot = line.samples[line.position];
    const float out = slot - 0.6F * in;
    slot = in + 0.6F * out;
    line.position = line.position + 1 == line.samples.size() ? 0 : line.position + 1;
    return out;
}

void Reverb::process(Stereo& block)
{
    for (std::size_t i = 0; i < block.frames(); ++i) {
        std::array<float*, 2> early = {&before_.samples[before_.position],
                                       &before_.samples[before_.position + 1]};
        before_.position = before_.position + 2 == before_.samples.size() ? 0 : before_.position + 2;
        const float left = diffuse(diffusers_[1], diffuse(diffusers_[0], *early[0])) + whisper;
        const float right = diffuse(diffusers_[3], diffuse(diffusers_[2], *early[1])) + whisper;
        *early[0] = block.left[i];
        *early[1] = block.right[i];
        std::array<float, lineCount> v{};
        for (std::size_t n = 0; n < lineCount; ++n) {
            const Line& line = lines_[n];
            damped_[n] += (1.0F - damping_) * (line.samples[line.position] - damped_[n]);
            v[n] = damped_[n];
        }
        block.left[i] = 0.6F * (v[0] - v[2] + v[4] - v[6]);
        block.right[i] = 0.6F * (v[1] - v[3] + v[5] - v[7]);
        for (std::size_t step = 1; step < lineCount; step *= 2) // each line hears all the others
            for (std::size_t n = 0; n < lineCount; ++n)
                if ((n & step) == 0) {
                    const float sum = v[n] + v[n + step];
                    v[n + step] = v[n] - v[n + step];
                    v[n] = sum;
                }
        for (std::size_t n = 0; n < lineCount; ++n) {
            Line& line = lines_[n];
            line.samples[line.position] = gains_[n] * v[n] + (n % 2 == 0 ? left : right);
            line.position = line.position + 1 == line.samples.size() ? 0 : line.position + 1;
        }
    }
}

Chorus::Chorus()
{
    for (auto& line : lines_)
        line.resize(2048);
}

void Chorus::process(Stereo& block, float amount)
{
    constexpr std::size_t stretch = 64;
    constexpr std::size_t mask = 2047;
    const double rate = 0.37;
    for (std::size_t start = 0; start < block.frames(); start += stretch) {
        const std::size_t count = std::min(stretch, block.frames() - start);
        const double next = phase_ + rate * static_cast<double>(count) / sampleRate;
        for (std::size_t side = 0; side < 2; ++side) {
            auto& samples = side == 0 ? block.left : block.right;
            auto& line = lines_.at(side);
            const double offset = side == 0 ? 0.0 : 0.31;
            const auto from =
                static_cast<float>((0.011 + 0.0035 * sineOfTurns(phase_ + offset)) * sampleRate);
            const auto to = static_cast<float>((0.011 + 0.0035 * sineOfTurns(next + offset)) * sampleRate);
            const float step = (to - from) / static_cast<float>(count);
            float delay = from;
            for (std::size_t i = 0; i < count; ++i) {
                const std::size_t now = position_ + i;
                line[now & mask] = samples[start + i];
                const auto whole = static_cast<std::size_t>(delay);
                const float within = delay - static_cast<float>(whole);
                const float wet =
                    line[(now - whole) & mask] * (1.0F - within) + line[(now - whole - 1) & mask] * within;
                samples[start + i] = (samples[start + i] * (1.0F - 0.35F * amount) + amount * 0.8F * wet);
                delay += step;
            }
        }
        position_ += count;
        phase_ = next;
    }
}

Echo::Echo(double seconds)
{
    for (auto& line : lines_)
        line.resize(std::max<std::size_t>(1, frames(seconds)));
}

void Echo::process(Stereo& block)
{
    for (std::size_t i = 0; i < block.frames(); ++i) {
        const float left = lines_[0][position_];
        const float right = lines_[1][position_];
        soft_[0] += 0.45F * (left - soft_[0]);
        soft_[1] += 0.45F * (right - soft_[1]);
        lines_[0][position_] = 0.5F * (block.left[i] + block.right[i]) + 0.42F * soft_[1] + whisper;
        lines_[1][position_] = 0.9F * soft_[0];
        position_ = position_ + 1 == lines_[0].size() ? 0 : position_ + 1;
        block.left[i] = left;
        block.right[i] = right;
    }
}

void Tremolo::process(Stereo& block, float depth)
{
    constexpr std::size_t stretch = 64;
    for (std::size_t start = 0; start < block.frames(); start += stretch) {
        const std::size_t end = std::min(start + stretch, block.frames());
        const double next = phase_ + 4.4 * static_cast<double>(end - start) / sampleRate;
        auto swing = static_cast<float>(sineOfTurns(phase_));
        const float step = (static_cast<float>(sineOfTurns(next)) - swing) / static_cast<float>(end - start);
        for (std::size_t i = start; i < end; ++i) {
            block.left[i] *= 1.0F + depth * swing;
            block.right[i] *= 1.0F - depth * swing;
            swing += step;
        }
        phase_ = next;
    }
}

void Drive::process(Stereo& block) const
{
    for (auto* side : {&block.left, &block.right})
        for (float& sample : *side)
            sample = 0.3F * softClip(7.0F * sample);
}

void Drive::speaker(Stereo& block)
{
    std::size_t state = 0;
    for (auto* side : {&block.left, &block.right}) {
        for (float& sample : *side) {
            state_[state] += 0.42F * (sample - state_[state]);
            state_[state + 1] += 0.42F * (state_[state] - state_[state + 1]);
            sample = state_[state + 1];
        }
        state += 2;
    }
}

} // namespace zib::demo
