#pragma once

// What the kernels of the colour conversion have to give, pixel by pixel, in plain scalar code that shares nothing with them.

#include "support/HueModel.h"
#include "support/LabModel.h"
#include "support/LuvModel.h"
#include "support/MatrixModel.h"
#include "support/ModelForm.h"
#include "support/PixelModel.h"
#include "support/PowerModel.h"
#include "support/SRGBModel.h"
