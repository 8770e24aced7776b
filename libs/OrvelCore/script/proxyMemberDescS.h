#pragma once

/// @file
/// What a script class says of itself: its name, its base and its members.

#include <typeinfo>

class proxyAutoParaListC;
class proxyAutoTypeCastC;
class proxyObjectC;

/// Kinds of a member. They are bits, so that a call can ask for several at once.
enum proxyMemberKindE { proxyMethod = 1, proxyPropertyRead = 2, proxyPropertyWrite = 4 };

/// One type of a signature: the same type twice and a null.
struct proxySignatureTypeS
{
    std::type_info const *type;
    std::type_info const *sameType;
    void const *null;
};

/// Takes the parameters apart, calls the member of `object` and puts the result into `result`.
/// The bool goes to `proxyAutoTypeCastC::get`.
using proxyHandlerF = void (*)(proxyObjectC *object, proxyAutoParaListC &parameters,
                               proxyAutoTypeCastC &result, bool lenient);

/// One member that scripts see. A class has a static table of them that ends with a null name.
/// Entries of equal name and parameter count differ in the parameters' types; the first one in the
/// table that can take the arguments serves the call.
struct proxyMemberDescS
{
    char const *name;   ///< script name; "" is the default member, called as the object itself
    int kind;           ///< one of proxyMemberKindE
    int parameterCount; ///< 0 for a property read, 1 for a property write
    proxyHandlerF handler;
    /// Gives 1 + parameterCount entries: the type of the pointer to the member function, then the
    /// type of each parameter.
    proxySignatureTypeS const *(*signature)();
    char const *file; ///< where the member is declared, for diagnostics
    int line;
};

/// What the core knows of one script class.
struct proxyMemberDescListS
{
    char const *name;                    ///< class name, such as "prxVector3dC"
    void *(*cast)(proxyObjectC const *); ///< from the base of all proxies to this class
    proxyMemberDescListS **baseClasses;  ///< ends with null
    proxyMemberDescS *members;           ///< ends with a null name
    char const *objectIdentifier;        ///< name for scripts; null: not to be created by name
    int flags;                           ///< 0
    proxyObjectC *(*creator)();          ///< makes a default object; null if memory ran out
    char const *file;
    int line;
};
