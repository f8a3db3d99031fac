// Handlers of the fx members that have logic of their own (the rest go straight to the control).
#pragma once

#include "effects/FxMember.h"

namespace fx {

using Args = std::span<vbs::Value*>;

vbs::Value init(clsVTEffects& fx, Args args);
vbs::Value colorize(clsVTEffects& fx, Args args);
vbs::Value resizePercent(clsVTEffects& fx, Args args);
vbs::Value resizeAspect(clsVTEffects& fx, Args args);
vbs::Value saveFileNameAddPrefix(clsVTEffects& fx, Args args);
vbs::Value saveFileNameExtension(clsVTEffects& fx, Args args);
vbs::Value font(clsVTEffects& fx, Args args);
vbs::Value msgDisplay(clsVTEffects& fx, Args args);
vbs::Value filenameLet(clsVTEffects& fx, Args args);
vbs::Value picture(clsVTEffects& fx, Args args);
vbs::Value numPages(clsVTEffects& fx, Args args);
vbs::Value colorSeparation(clsVTEffects& fx, Args args);
vbs::Value matrix(clsVTEffects& fx, Args args);

} // namespace fx
