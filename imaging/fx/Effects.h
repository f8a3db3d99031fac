// Everything the imaging control needs from its effects, in one include.
#pragma once

#include "imaging/fx/AreaMerge.h"
#include "imaging/fx/Capture.h"
#include "imaging/fx/Distortions.h"
#include "imaging/fx/Drawing.h"
#include "imaging/fx/Filters.h"
#include "imaging/fx/FxCatalogue.h"
#include "imaging/fx/FxError.h"
#include "imaging/fx/FxTypes.h"
