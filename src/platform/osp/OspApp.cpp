// SPDX-License-Identifier: MIT
#include "OspApp.h"

#include "EventLoop.h"

#include <memory>

namespace Osp::App {

result Application::Execute(Factory factory, const Osp::Base::Collection::IList* /*arguments*/) {
    const std::unique_ptr<Application> application(factory());
    if (application == nullptr) {
        return E_FAILURE;
    }
    EventLoop loop(*application);
    return loop.run();
}

Osp::Base::String Application::GetAppVersion() const {
    return MURMELO_VERSION;
}

AppRegistry* Application::GetAppRegistry() const {
    return loop != nullptr ? &loop->registry : nullptr;
}

Osp::Ui::Controls::Frame* Application::GetAppFrame() const {
    return loop != nullptr ? &loop->frame : nullptr;
}

result Application::SendUserEvent(RequestId requestId,
                                  const Osp::Base::Collection::IList* /*arguments*/) {
    if (loop == nullptr) {
        return E_FAILURE;
    }
    loop->queueUserEvent(requestId);
    return E_SUCCESS;
}

result Application::Terminate() {
    if (loop == nullptr) {
        return E_FAILURE;
    }
    loop->terminate();
    return E_SUCCESS;
}

}  // namespace Osp::App

result Osp::Ui::Controls::Frame::SetOrientation(Orientation orientation) {
    return orientation == ORIENTATION_PORTRAIT ? E_SUCCESS : E_FAILURE;
}
