#pragma once

#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/NtpTime.h"
#include "MplsUtils/LspPing/message/Export.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

#include <cstdint>
#include <string_view>

// Codes as people say them, beside the enumerators' names: mostly the words of the RFC that assigns
// them, with "(deprecated)" behind those that are. Empty for a value without words; the value
// itself is what a reader should see then. An enumeration of module LspPingTypes stands for all
// values of its registry, those too whose enumerators module LspPingExt adds.
namespace LspPing {

LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingMsgType type ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingReplyMode mode ) noexcept;
/// RFC 8029 section 3.1, such as "label switched at stack-depth": the subcode belongs behind those
/// for which `lspPingHasStackDepth` is true.
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingReturnCode code ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingAddrType type ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingMultipathType type ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingPadType type ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view
lspPingWords( LspPingDownstreamSignalingProtocol protocol ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view
lspPingWords( LspPingFecStackChangeSubTlvOperType operation ) noexcept;
/// Of the Reply Path TLV, RFC 7110 section 4.2.
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingReplyPathReturnCode code ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingSrIgpProtocol protocol ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingAdjacencyType type ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingTlvType code ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingTargetFecSubTlvType code ) noexcept;
LSPPING_MESSAGE_EXPORT std::string_view lspPingWords( LspPingDDMappingSubTlvType code ) noexcept;

// The same under the names that module LspPingExt has for them.
inline std::string_view lspPingWords( LspPingExtMsgType type ) noexcept {
   return lspPingWords( static_cast< LspPingMsgType >( type ) );
}
inline std::string_view lspPingWords( LspPingExtReplyMode mode ) noexcept {
   return lspPingWords( static_cast< LspPingReplyMode >( mode ) );
}
inline std::string_view lspPingWords( LspPingExtReturnCode code ) noexcept {
   return lspPingWords( static_cast< LspPingReturnCode >( code ) );
}
inline std::string_view lspPingWords( LspPingExtAddrType type ) noexcept {
   return lspPingWords( static_cast< LspPingAddrType >( type ) );
}
inline std::string_view lspPingWords( LspPingExtMultipathType type ) noexcept {
   return lspPingWords( static_cast< LspPingMultipathType >( type ) );
}
inline std::string_view lspPingWords( LspPingExtDownstreamSignalingProtocol protocol ) noexcept {
   return lspPingWords( static_cast< LspPingDownstreamSignalingProtocol >( protocol ) );
}
inline std::string_view lspPingWords( LspPingExtSrIgpProtocol protocol ) noexcept {
   return lspPingWords( static_cast< LspPingSrIgpProtocol >( protocol ) );
}
inline std::string_view lspPingWords( LspPingExtTlvType code ) noexcept {
   return lspPingWords( static_cast< LspPingTlvType >( code ) );
}
inline std::string_view lspPingWords( LspPingExtTargetFecSubTlvType code ) noexcept {
   return lspPingWords( static_cast< LspPingTargetFecSubTlvType >( code ) );
}
inline std::string_view lspPingWords( LspPingExtDDMappingSubTlvType code ) noexcept {
   return lspPingWords( static_cast< LspPingDDMappingSubTlvType >( code ) );
}

/// The same of a code in any context: of a TLV, a sub-TLV, a FEC or an opaque value.
LSPPING_MESSAGE_EXPORT std::string_view lspPingElementWords( LspPingContext context,
                                                             U32 code ) noexcept;

/// Whether the return subcode of that code is a depth in the label stack.
LSPPING_MESSAGE_EXPORT bool lspPingHasStackDepth( LspPingReturnCode code ) noexcept;

/// A return code with its subcode: "label switched at stack-depth 1", "return code 77, subcode 2".
LSPPING_MESSAGE_EXPORT void appendReturnCode( Orlo::StringBuilder & out, U8 code, U8 subcode );

/// The global flags by their letters, the highest bit first: "RTV"; the others as one number behind
/// them, "V+0x8". Empty without any.
LSPPING_MESSAGE_EXPORT void appendHeaderFlags( Orlo::StringBuilder & out, U16 flags );
/// The flags of a downstream mapping, RFC 8029 section 3.4, RFC 8012 section 4 and RFC 8611
/// section 5: G for LAG description, L for label-based load balance, E for ELI/EL push, I for
/// interface and label stack, N for non-IP.
LSPPING_MESSAGE_EXPORT void appendDownstreamFlags( Orlo::StringBuilder & out, U8 flags );

/// A time in seconds and nanoseconds since 1970 as date and time of UTC:
/// "2026-01-31T12:00:00.250000Z" with six digits behind the second, nine where they are no whole
/// microseconds. "out of range" where the year is not one of 0 to 9999.
LSPPING_MESSAGE_EXPORT void appendUtc( Orlo::StringBuilder & out, std::int64_t sinceEpoch,
                                       U32 nanoseconds );
/// An NTP time as date and time of UTC, in microseconds: "2026-01-31T12:00:00.250000Z". Seconds of
/// which the highest bit is not set count from 2036-02-07T06:28:16Z, RFC 4330 section 3. "none" for
/// zero.
LSPPING_MESSAGE_EXPORT void appendNtpTime( Orlo::StringBuilder & out, NtpTimeU64 const & time );

} // namespace LspPing
