// The library's content models, which are binary trees. For this folder only.
#pragma once

#include <vector>
#include <xercesc/validators/common/ContentSpecNode.hpp>
#include <xercesc/validators/schema/SchemaAttDef.hpp>

#include "xml/schema_components.h"
#include "xml/schema_grammars.h"

namespace fdmorph {

/// What a node that is a particle stands for.
[[nodiscard]] SchemaParticle::Kind kindOf(xerces::ContentSpecNode const& node);

/// The particles of a group, in order.
[[nodiscard]] std::vector<xerces::ContentSpecNode const*> partsOf(
    xerces::ContentSpecNode const& group);

[[nodiscard]] SchemaWildcard wildcardOf(xerces::ContentSpecNode const& node,
                                        SchemaGrammars& grammars);

[[nodiscard]] SchemaWildcard wildcardOf(xerces::SchemaAttDef const& attribute,
                                        SchemaGrammars& grammars);

}  // namespace fdmorph
