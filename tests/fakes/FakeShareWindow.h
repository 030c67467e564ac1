// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ShareWindow.h"

#include <QList>

#include <functional>

namespace zib {

/// Shows nothing: keeps every form and answers what the test says, the form as it stands by default.
class FakeShareWindow : public ShareWindow {
  public:
    std::optional<ShareForm> runModal(const ShareForm& form) override
    {
        shown.append(form);
        return answer(form);
    }

    QList<ShareForm> shown;
    std::function<std::optional<ShareForm>(const ShareForm&)> answer = [](const ShareForm& form) {
        return form;
    };
};

} // namespace zib
