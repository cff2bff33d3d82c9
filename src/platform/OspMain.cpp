#include "OspMain.h"

#include "GEngine.h"
#include "OspBase.h"

using Osp::Base::String;
using Osp::Base::Collection::ArrayList;

namespace {

constexpr int32_t kUsualArguments = 10;
constexpr result kLowWord = 0xFFFF;

}  // namespace

int OspMain(int argc, char** argv) {
    auto* arguments = new ArrayList();
    arguments->Construct(kUsualArguments);
    for (int i = 0; i < argc; i++) {
        arguments->Add(*new String(argv[i]));
    }
    result r = Osp::App::Application::Execute(GEngine::CreateInstance, arguments);
    if (r != E_SUCCESS) {
        r &= kLowWord;
    }
    arguments->RemoveAll(true);
    delete arguments;
    return static_cast<int>(r);
}
