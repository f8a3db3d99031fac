// Compile-time name resolution: every name becomes a local, parameter, field or global slot.
#pragma once

#include "Ast.h"

namespace vbs {

class Engine;

// Declares the program's globals (Dim, Const, Sub, Function, Class) in the engine and resolves
// every name. scope: the procedure whose locals Execute/Eval code sees (nullptr: global scope).
// Throws located compile errors (1041 Name redefined, ...).
void resolveProgram(Program& program, Engine& engine, Procedure* scope);

} // namespace vbs
