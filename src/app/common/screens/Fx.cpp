#include "Fx.h"

#include "PaImage.h"
#include "WavProc.h"

Fx::Fx(int32_t nameId, Osp::Base::String* imagePath, WavProc* processor)
    : name(nameId)
    , image(new PaImage())
    , processor(processor) {
    image->set(imagePath, true, false);
}

Fx::~Fx() {
    delete image;
    delete processor;
}
