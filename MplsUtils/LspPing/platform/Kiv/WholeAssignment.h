#pragma once

// One page for the one macro of a class that is assigned as a whole. It is a macro because a class
// cannot inherit its copy assignment: what it inherits is hidden by its own, member by member.

/// The copies and moves of class T, which holds several members and some of them allocate: when
/// memory runs out in a copy assignment, std::bad_alloc leaves the target as it was.
// A class's name cannot stand in parentheses where it declares.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define KIV_WHOLE_ASSIGNMENT( T )                                                                  \
   T( T const & ) = default;                                                                       \
   T( T && ) noexcept = default;                                                                   \
   ~T() = default;                                                                                 \
   T & operator=( T const & other ) {                                                              \
      return *this = T( other );                                                                   \
   }                                                                                               \
   T & operator=( T && ) noexcept = default
// NOLINTEND(bugprone-macro-parentheses)
