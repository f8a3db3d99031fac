// Script errors: the one catalogue of VBScript error numbers and messages, and the exception type.
#pragma once

#include "Text.h"

#include <cstdint>
#include <exception>
#include <span>

namespace vbs {

enum class ErrorCode : int32_t {
    // Run-time errors of the language and its library.
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    ArrayFixedOrLocked = 10,
    DivisionByZero = 11,
    TypeMismatch = 13,
    OutOfStringSpace = 14,
    CantPerformOperation = 17,
    OutOfStackSpace = 28,
    ProcedureNotDefined = 35,
    InternalError = 51,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    RenameAcrossDrives = 74,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    ForLoopNotInitialized = 92,
    InvalidUseOfNull = 94,
    CantCreateTempFile = 322,
    ObjectRequired = 424,
    CantCreateObject = 429,
    ClassDoesntSupportAutomation = 430,
    FileOrClassNotFound = 432,
    NoSuchMember = 438,
    AutomationError = 440,
    ActionNotSupported = 445,
    NamedArgumentsNotSupported = 446,
    LocaleNotSupported = 447,
    NamedArgumentNotFound = 448,
    ArgumentNotOptional = 449,
    WrongArgumentCount = 450,
    NotACollection = 451,
    DllFunctionNotFound = 453,
    KeyAlreadyExists = 457,
    UnsupportedAutomationType = 458,
    RemoteServerUnavailable = 462,
    InvalidPicture = 481,
    VariableUndefined = 500,
    IllegalAssignment = 501,
    NotSafeForScripting = 502,
    NotSafeForInitializing = 503,
    NotSafeForCreating = 504,
    InvalidReference = 505,
    ClassNotDefined = 506,
    ExceptionOccurred = 507,
    IllegalAssignmentConst = 5008,
    RegExpObjectExpected = 5016,
    RegExpSyntax = 5017,
    RegExpUnexpectedQuantifier = 5018,
    RegExpExpectedBracket = 5019,
    RegExpExpectedParen = 5020,
    RegExpInvalidRange = 5021,
    ElementNotFound = 32811,

    // Compile errors.
    CompileOutOfMemory = 1001,
    SyntaxError = 1002,
    ExpectedColon = 1003,
    ExpectedLParen = 1005,
    ExpectedRParen = 1006,
    ExpectedRBracket = 1007,
    ExpectedIdentifier = 1010,
    ExpectedEquals = 1011,
    ExpectedIf = 1012,
    ExpectedTo = 1013,
    ExpectedEnd = 1014,
    ExpectedFunction = 1015,
    ExpectedSub = 1016,
    ExpectedThen = 1017,
    ExpectedWend = 1018,
    ExpectedLoop = 1019,
    ExpectedNext = 1020,
    ExpectedCase = 1021,
    ExpectedSelect = 1022,
    ExpectedExpression = 1023,
    ExpectedStatement = 1024,
    ExpectedEndOfStatement = 1025,
    ExpectedIntegerConstant = 1026,
    ExpectedWhileOrUntil = 1027,
    ExpectedWhileUntilOrEnd = 1028,
    ExpectedWith = 1029,
    IdentifierTooLong = 1030,
    InvalidNumber = 1031,
    InvalidCharacter = 1032,
    UnterminatedString = 1033,
    UnterminatedComment = 1034,
    InvalidUseOfMe = 1037,
    LoopWithoutDo = 1038,
    InvalidExit = 1039,
    InvalidForVariable = 1040,
    NameRedefined = 1041,
    MustBeFirstStatement = 1042,
    AssignToNonByVal = 1043,
    ParenthesesCallingSub = 1044,
    ExpectedLiteral = 1045,
    ExpectedIn = 1046,
    ExpectedClass = 1047,
    MustBeInsideClass = 1048,
    ExpectedLetSetGet = 1049,
    ExpectedProperty = 1050,
    InconsistentPropertyArgs = 1051,
    MultipleDefaults = 1052,
    InitTerminateArgs = 1053,
    PropertyNeedsArgument = 1054,
    UnexpectedNext = 1055,
    DefaultOnWrongMember = 1056,
    DefaultNeedsPublic = 1057,
    DefaultOnlyOnGet = 1058,
};

struct ErrorEntry {
    int32_t number;
    const char* message;
};

// Every number the engine knows with its English message, in ascending order.
std::span<const ErrorEntry> errorCatalogue();

// The catalogue's message, or "Unknown runtime error" for a number outside it.
String errorMessage(int32_t number);
inline String errorMessage(ErrorCode code) { return errorMessage(int32_t(code)); }
bool isCompileError(int32_t number);
// The error number scripts see for an HRESULT: VBScript's own facility gives its low word, common
// system and OLE codes their VBScript equivalents (E_OUTOFMEMORY is 7, ...); others stay as they
// are.
int32_t errorFromHresult(int32_t hresult);

struct ScriptError : std::exception {
    ScriptError(int32_t number, String description, String source = {});
    explicit ScriptError(ErrorCode code, String source = {});
    const char* what() const noexcept override;

    int32_t number = 0;
    String description;
    String source;
    String helpFile;
    int32_t helpContext = 0;
    // Where in the script it happened: 0 until the engine places it.
    int line = 0;
    int column = 0;
    int chunk = -1; // which piece of added code the line counts in
    // Raised while compiling: a compile error, or a run-time number the compiler can raise
    // too (28 Out of stack space for nesting too deep).
    bool compileTime = false;
    bool located() const { return line > 0; }

private:
    mutable std::string m_what;
};

// Places e at the statement the script engine of this thread is running, as an error raised by
// it now would be placed: for a failure that is found later but belongs there (a save finished
// in the background). False when no script is running.
bool locateAtRunningStatement(ScriptError& e);

// The one-argument form builds nothing in its caller, so the interpreter's fast paths that may
// raise need no stack frame for it.
[[noreturn, gnu::cold, gnu::noinline]] void raise(ErrorCode code);
[[noreturn]] void raise(ErrorCode code, String source);
[[noreturn]] void raise(int32_t number, String description, String source = {});

} // namespace vbs
