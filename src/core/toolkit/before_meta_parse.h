// Included into the toolkit's XMPMeta-Parse.cpp alone, before all else: aliases are mended between
// the reading of the RDF and the toolkit's own moving of them.
#pragma once

#include "public/include/XMP_Environment.h"

#include "XMPCore/source/XMPCore_Impl.hpp"
#include "XMPCore/source/XMPMeta.hpp"

#include "core/toolkit/alias_mend.h"

#define ProcessRDF(root, options) ProcessRDF(root, options), xmpl::mendAliases(this->tree)
