// VBScript's operators on Values: arithmetic with type promotion, comparison, logic.
#pragma once

#include "Value.h"

namespace vbs::ops {

Value add(const Value& a, const Value& b);
Value sub(const Value& a, const Value& b);
Value mul(const Value& a, const Value& b);
Value div(const Value& a, const Value& b);
Value intDiv(const Value& a, const Value& b);
Value mod(const Value& a, const Value& b);
Value pow(const Value& a, const Value& b);
Value neg(const Value& a);
Value concat(const Value& a, const Value& b);
Value logicNot(const Value& a);
Value logicAnd(const Value& a, const Value& b);
Value logicOr(const Value& a, const Value& b);
Value logicXor(const Value& a, const Value& b);
Value logicEqv(const Value& a, const Value& b);
Value logicImp(const Value& a, const Value& b);

// -1, 0, 1, or kCompareNull when either side is Null. A number compared with a string converts
// the string to a number when the number was written as a literal (aLiteral/bLiteral) and the
// string reads as one (text that does not sorts after the literal); otherwise it compares the
// number's text with the string.
constexpr int kCompareNull = 2;
int compare(const Value& a, const Value& b, bool aLiteral = false, bool bLiteral = false);
// Object identity for "Is": both sides must be objects (424 otherwise).
bool same(const Value& a, const Value& b);

} // namespace vbs::ops
