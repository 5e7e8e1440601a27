#pragma once

#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/base/Export.h"

#include <exception>
#include <string_view>

namespace Kiv {

/// A value outside its range, or text that is not a value. Its subject is the attribute or the
/// enumeration concerned: "pwInfo.pwId" names an attribute inside another. A subject may be empty
/// until the one who knows it calls `within`.
class LSPPING_PLATFORM_EXPORT RangeException : public std::exception {
 public:
   RangeException( Orlo::String subject, Orlo::String problem );
   ~RangeException() override;

   /// "subject: problem", or the problem alone.
   char const * what() const noexcept override;

   Orlo::String const & subject() const noexcept { return subject_; }
   Orlo::String const & problem() const noexcept { return problem_; }

   /// The same problem, met inside `attribute`.
   RangeException within( std::string_view attribute ) const;

 private:
   Orlo::String subject_;
   Orlo::String problem_;
   Orlo::String what_;
};

/// The hash of a value whose type cannot be hashed was asked for.
class LSPPING_PLATFORM_EXPORT UnhashableException : public std::exception {
 public:
   explicit UnhashableException( std::string_view typeName );
   ~UnhashableException() override;

   /// "LspPing::NtpTimeU64 cannot be hashed"
   char const * what() const noexcept override;

 private:
   Orlo::String what_;
};

} // namespace Kiv
