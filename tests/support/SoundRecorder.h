// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/NullOutput.h"

#include <mutex>
#include <vector>

namespace zib::test {

/// Hears what the outputs of a test play.
class SoundRecorder {
  public:
    NullOutput::Ear ear()
    {
        return [this](const SoundFormat& format, std::span<const float> samples) {
            const std::lock_guard guard(lock_);
            format_ = format;
            samples_.insert(samples_.end(), samples.begin(), samples.end());
        };
    }
    [[nodiscard]] SoundFormat format() const
    {
        const std::lock_guard guard(lock_);
        return format_;
    }
    [[nodiscard]] std::vector<float> samples() const
    {
        const std::lock_guard guard(lock_);
        return samples_;
    }
    [[nodiscard]] std::size_t frames() const
    {
        const std::lock_guard guard(lock_);
        return format_.channels == 0 ? 0 : samples_.size() / static_cast<std::size_t>(format_.channels);
    }
    [[nodiscard]] std::vector<float> channel(std::size_t index) const
    {
        const std::lock_guard guard(lock_);
        std::vector<float> one;
        for (std::size_t i = index; i < samples_.size(); i += static_cast<std::size_t>(format_.channels))
            one.push_back(samples_[i]);
        return one;
    }

  private:
    mutable std::mutex lock_;
    SoundFormat format_;
    std::vector<float> samples_;
};

} // namespace zib::test
