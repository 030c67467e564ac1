// SPDX-License-Identifier: GPL-3.0-or-later
// zib-metadata: answers the paths on its standard input, each closed by a zero byte, with one line each until
// the input closes. It is started by the program and may be lost to any file at any time.
#include "platform/desktop/metadata/SoundTags.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>

#include <sys/resource.h>

namespace {

constexpr rlim_t mostMemory = rlim_t(512) << 20;

/// The attributes, or none when the tag library threw for want of memory or for a length that cannot be.
zib::FileAttributes attributesOf(const std::string& path)
{
    try {
        return zib::attributesOfSoundFile(QByteArray::fromStdString(path));
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace

int main()
{
    const rlimit noCore{0, 0};
#ifndef __SANITIZE_ADDRESS__ // which needs more than that for itself
    const rlimit memory{mostMemory, mostMemory};
    ::setrlimit(RLIMIT_DATA, &memory);
#endif
    ::setrlimit(RLIMIT_CORE, &noCore);
    std::ios::sync_with_stdio(false);
    for (std::string path; std::getline(std::cin, path, '\0');) {
        const QByteArray line = zib::encodedAttributes(attributesOf(path));
        std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
        std::fflush(stdout);
    }
    return 0;
}
