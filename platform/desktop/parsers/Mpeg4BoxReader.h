// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/FormatParser.h"

#include <array>

namespace zib {

/// Takes the boxes (ISO 14496-12) of a file apart as its bytes come. What it holds grows with the bytes that
/// come, never with a length that was only claimed.
class Mpeg4BoxReader {
  public:
    enum class Handling {
        Skip,
        Enter,  ///< its body is boxes
        Gather, ///< its body is wanted whole
        Pass,   ///< its body is wanted as it comes
    };
    struct Treatment {
        Handling handling = Handling::Skip;
        std::size_t most = 0; ///< bytes gathered, from the beginning; the rest is skipped
    };
    class Client {
      public:
        virtual ~Client() = default;
        /// @param parent the box entered that this one is in; 0 for the file itself.
        /// @param offset the byte of the file that the box begins at.
        virtual Treatment boxBegins(std::uint32_t type, std::uint32_t parent, std::int64_t offset) = 0;
        /// @param offset the byte of the file that follows the box.
        virtual AudioStatus boxGathered(std::uint32_t type, std::span<const std::byte> body,
                                        std::int64_t offset) = 0;
        virtual AudioStatus boxEnds(std::uint32_t type) = 0; ///< one that was entered
        /// @param offset the byte of the file that the bytes begin at.
        virtual AudioStatus bytesPass(std::span<const std::byte> bytes, std::int64_t offset) = 0;
    };

    /// @param offset the byte of the file that comes first.
    Mpeg4BoxReader(Client& client, std::int64_t offset);

    /// Forgets what was begun: a box begins with the next byte.
    void restart(std::int64_t offset);
    /// Takes bytes from the front of these, all of them unless stopped or failed.
    AudioStatus read(std::span<const std::byte>& bytes);
    /// From within a call of the client: no byte more is taken.
    void stop() { stopped_ = true; }
    /// The byte of the file that comes next.
    [[nodiscard]] std::int64_t offset() const { return offset_; }

  private:
    struct Entered {
        std::uint32_t type;
        std::int64_t end;
    };

    AudioStatus closeEnded();
    AudioStatus readHeader(std::span<const std::byte>& bytes);
    AudioStatus beginBox();
    AudioStatus readBody(std::span<const std::byte>& bytes);
    AudioStatus endBody();
    [[nodiscard]] std::int64_t roomLeft() const;

    Client& client_;
    std::int64_t offset_;
    bool stopped_ = false;
    std::vector<Entered> entered_;

    std::array<std::byte, 16> header_{};
    std::size_t headerBytes_ = 0;
    std::size_t headerWanted_ = 8;

    bool inBody_ = false;
    std::uint32_t type_ = 0;
    Treatment treatment_;
    std::int64_t bodyLeft_ = 0;
    std::vector<std::byte> gathered_;
};

} // namespace zib
