#pragma once

/// @file
/// The script classes "linquet.vector2d", "linquet.vector3d", "linquet.matrix3x3",
/// "linquet.matrix4x4" and "linquet.mathfactory".
///
/// | Header | Holds |
/// |---|---|
/// | proxyValueType.h | how the four value types travel in variants and streams |
/// | prxVariantUserTypeBaseC.h | typed access to a proxy's value |
/// | prxVectorBaseC.h | what both vectors can do |
/// | prxVector2dC.h, prxVector3dC.h | the vectors |
/// | prxMatrix3x3C.h, prxMatrix4x4C.h | the matrices |
/// | prxMathFactoryC.h | makes all of them |
///
/// Each class describes itself to the script layer by the same members. What they give is built on
/// first use, from any thread, and stays.
///
/// | Member | Gives |
/// |---|---|
/// | OID | the identifier by which proxyFactoryC makes the class, such as "linquet.vector3d" |
/// | getObjectName | the class name, such as "prxVector3dC" |
/// | getStaticProxyTypeInfo, getProxyTypeInfo | the description with all of the following |
/// | getStaticBaseClasses | the description of the base class, then null |
/// | getStaticMemberDescription | the table of the members, which ends with a null name |
/// | _castTo | the object itself |
///
/// Scripts reach the members by name; C++ can call them as well. Things to know there:
///
/// - A function that returns a proxy gives a new object without references, or null if there is no
///   memory for it. Put it into an mzComPtrT. The setters are the exception: they return `this`.
///   Where there is memory for the object but not for its value, std::bad_alloc comes through, and
///   from the setters as well; the receiver then has its old value.
/// - A proxy owns its value. A vector that lives in a matrix has none: each reference to the vector
///   is one to the matrix too.
/// - The const members of a value proxy may run on several threads at the same time, as long as no
///   other member does. The others write, `getx` and `getRoll` included. By name, an object may be
///   called by one thread only, the first that does; the factory by all.
/// - Many members edit the value through prxValWrapperC, which counts a reference and gives it
///   back. On a proxy that nobody holds this would be the last one. Hold a proxy before you call
///   it.

#include <OrvelMath/proxymath/proxyValueType.h>
#include <OrvelMath/proxymath/prxMathFactoryC.h>
#include <OrvelMath/proxymath/prxMatrix3x3C.h>
#include <OrvelMath/proxymath/prxMatrix4x4C.h>
#include <OrvelMath/proxymath/prxVector2dC.h>
#include <OrvelMath/proxymath/prxVector3dC.h>
