// Content models that a validator can follow without looking ahead.
#pragma once

#include "docschema/particle.h"

namespace fdmorph::docschema {

/// Changes a sequence so that each element of a document can be only one of its
/// parts, as "Unique Particle Attribution" of XML Schema: Structures demands. What it
/// allowed before it allows afterwards.
///
/// A choice of views that begin with the same name becomes one sequence of their
/// parts, each of them optional. Where that does not help, because the views have
/// parts in another order, or because a name follows that they have too, it becomes
/// a list of elements in any order.
void makeDeterministic(Particle& sequence);

/// Gives all elements of one name the same nodes, since XML Schema demands one type
/// for them ("Element Declarations Consistent"), and sets isShared for them. They may
/// be any of the nodes. Those that follow one another become one.
///
/// Those that repeat are written out: Xerces-C 3.2 does not count the occurrences of a
/// name that several parts of a content model have.
void makeConsistent(Particle& sequence);

}  // namespace fdmorph::docschema
