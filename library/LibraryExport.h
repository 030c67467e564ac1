// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace zib {

/// Writes the content of a library file as the plain XML property list that it is, to a file or to standard
/// output ("-"). Never touches the library. A failure yields a sentence for the person.
tl::expected<void, QString> exportLibrary(const QString& libraryPath, const QString& destination);

} // namespace zib
