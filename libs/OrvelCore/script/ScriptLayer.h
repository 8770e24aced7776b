#pragma once

/// @file
/// The script layer as a whole: strings, variants, streams, counted pointers, proxies, the factory
/// and the server's events.

#include <OrvelCore/script/mzComDataStreamC.h>
#include <OrvelCore/script/mzComPtrC.h>
#include <OrvelCore/script/mzComServerStateEventC.h>
#include <OrvelCore/script/mzComStringC.h>
#include <OrvelCore/script/mzComVariantC.h>
#include <OrvelCore/script/mzIIDS.h>
#include <OrvelCore/script/mzIUnknown.h>
#include <OrvelCore/script/proxyAutoTypeCastC.h>
#include <OrvelCore/script/proxyFactoryC.h>
#include <OrvelCore/script/proxyMemberDescS.h>
#include <OrvelCore/script/proxyObjectC.h>
#include <OrvelCore/script/prxQVariantBaseC.h>
