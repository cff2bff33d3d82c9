// SPDX-License-Identifier: MIT
#include "GEngine.h"
#include "OspBase.h"
#include "OspMain.h"

using Osp::Base::String;
using Osp::Base::Collection::ArrayList;

namespace {

constexpr int32_t kUsualArguments = 10;
constexpr result kLowWord = 0xFFFF;

static_assert((E_FAILURE & kLowWord) != 0, "a failure must not look like success once it is cut");

}  // namespace

int exitStatusOf(uint32_t platformResult) {
    return static_cast<int>(platformResult != E_SUCCESS ? platformResult & kLowWord
                                                        : platformResult);
}

int OspMain(int argc, char** argv) {
    auto* arguments = new ArrayList();
    arguments->Construct(kUsualArguments);
    for (int i = 0; i < argc; i++) {
        arguments->Add(*new String(argv[i]));
    }
    const result r = Osp::App::Application::Execute(GEngine::CreateInstance, arguments);
    arguments->RemoveAll(true);
    delete arguments;
    return exitStatusOf(r);
}
