#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/NrcPtrInterface.h"
#include "MplsUtils/LspPing/platform/Kiv/Typed.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingModules.h"

namespace LspPing {

// Header of every MPLS echo request and reply, RFC 8029 section 3. The TLVs follow it.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |            version            |          globalFlags          |
// +---------------+---------------+---------------+---------------+
// |  messageType  |   replyMode   |  returnCode   | returnSubcode |
// +---------------+---------------+---------------+---------------+
// |                         senderHandle                          |
// |                        sequenceNumber                         |
// |                         tsSentSeconds                         |
// |                        tsSentmSeconds                         |
// |                         tsRcvdSeconds                         |
// |                        tsRcvdmSeconds                         |
// +---------------------------------------------------------------+
//
// The time stamps are NTP seconds and units of 2^-32 s.
class LSPPING_EXPORT LspPingHdr : public Kiv::Typed< LspPingHdr, Kiv::NrcPtrInterface > {
 public:
   // The fields as they are stored, bit for bit.
   constexpr U16 versionNbo() const noexcept { return version_.raw(); }
   constexpr void versionNboIs( U16 raw ) noexcept { version_.rawIs( raw ); }
   constexpr U16 globalFlagsNbo() const noexcept { return globalFlags_.raw(); }
   constexpr void globalFlagsNboIs( U16 raw ) noexcept { globalFlags_.rawIs( raw ); }
   constexpr U8 messageType() const noexcept { return messageType_; }
   constexpr void messageTypeIs( U8 type ) noexcept { messageType_ = type; }
   constexpr U8 replyMode() const noexcept { return replyMode_; }
   constexpr void replyModeIs( U8 mode ) noexcept { replyMode_ = mode; }
   constexpr U8 returnCode() const noexcept { return returnCode_; }
   constexpr void returnCodeIs( U8 code ) noexcept { returnCode_ = code; }
   constexpr U8 returnSubcode() const noexcept { return returnSubcode_; }
   constexpr void returnSubcodeIs( U8 subcode ) noexcept { returnSubcode_ = subcode; }
   constexpr U32 senderHandleNbo() const noexcept { return senderHandle_.raw(); }
   constexpr void senderHandleNboIs( U32 raw ) noexcept { senderHandle_.rawIs( raw ); }
   constexpr U32 sequenceNumberNbo() const noexcept { return sequenceNumber_.raw(); }
   constexpr void sequenceNumberNboIs( U32 raw ) noexcept { sequenceNumber_.rawIs( raw ); }
   constexpr U32 tsSentSecondsNbo() const noexcept { return tsSentSeconds_.raw(); }
   constexpr void tsSentSecondsNboIs( U32 raw ) noexcept { tsSentSeconds_.rawIs( raw ); }
   constexpr U32 tsSentmSecondsNbo() const noexcept { return tsSentmSeconds_.raw(); }
   constexpr void tsSentmSecondsNboIs( U32 raw ) noexcept { tsSentmSeconds_.rawIs( raw ); }
   constexpr U32 tsRcvdSecondsNbo() const noexcept { return tsRcvdSeconds_.raw(); }
   constexpr void tsRcvdSecondsNboIs( U32 raw ) noexcept { tsRcvdSeconds_.rawIs( raw ); }
   constexpr U32 tsRcvdmSecondsNbo() const noexcept { return tsRcvdmSeconds_.raw(); }
   constexpr void tsRcvdmSecondsNboIs( U32 raw ) noexcept { tsRcvdmSeconds_.rawIs( raw ); }

   // The same in host order.
   constexpr U16 version() const noexcept { return version_.value(); }
   constexpr void versionIs( U16 version ) noexcept { version_.valueIs( version ); }
   constexpr U16 globalFlags() const noexcept { return globalFlags_.value(); }
   constexpr void globalFlagsIs( U16 flags ) noexcept { globalFlags_.valueIs( flags ); }
   constexpr U32 senderHandle() const noexcept { return senderHandle_.value(); }
   constexpr void senderHandleIs( U32 handle ) noexcept { senderHandle_.valueIs( handle ); }
   constexpr U32 sequenceNumber() const noexcept { return sequenceNumber_.value(); }
   constexpr void sequenceNumberIs( U32 number ) noexcept { sequenceNumber_.valueIs( number ); }
   constexpr U32 tsSentSeconds() const noexcept { return tsSentSeconds_.value(); }
   constexpr void tsSentSecondsIs( U32 seconds ) noexcept { tsSentSeconds_.valueIs( seconds ); }
   constexpr U32 tsSentmSeconds() const noexcept { return tsSentmSeconds_.value(); }
   constexpr void tsSentmSecondsIs( U32 fraction ) noexcept { tsSentmSeconds_.valueIs( fraction ); }
   constexpr U32 tsRcvdSeconds() const noexcept { return tsRcvdSeconds_.value(); }
   constexpr void tsRcvdSecondsIs( U32 seconds ) noexcept { tsRcvdSeconds_.valueIs( seconds ); }
   constexpr U32 tsRcvdmSeconds() const noexcept { return tsRcvdmSeconds_.value(); }
   constexpr void tsRcvdmSecondsIs( U32 fraction ) noexcept { tsRcvdmSeconds_.valueIs( fraction ); }

   /// An echo request or reply of version 1 or 2, whatever the other fields hold.
   constexpr bool valid() const noexcept {
      return ( version() == 1 || version() == 2 ) && ( messageType_ == 1 || messageType_ == 2 );
   }
   /// "LspPingHdr:" and the twelve fields, or "Invalid LspPingHdr".
   Orlo::String stringValue() const;
   /// The same text of any header.
   Orlo::String fieldsText() const;

   static consteval auto kivAttributes() {
      using Self = LspPingHdr;
      using Kiv::computed;
      using Kiv::field;
      return Kiv::attributes(
         field< &Self::versionNbo, &Self::versionNboIs >( "versionNbo" ),
         field< &Self::globalFlagsNbo, &Self::globalFlagsNboIs >( "globalFlagsNbo" ),
         field< &Self::messageType, &Self::messageTypeIs >( "messageType" ),
         field< &Self::replyMode, &Self::replyModeIs >( "replyMode" ),
         field< &Self::returnCode, &Self::returnCodeIs >( "returnCode" ),
         field< &Self::returnSubcode, &Self::returnSubcodeIs >( "returnSubcode" ),
         field< &Self::senderHandleNbo, &Self::senderHandleNboIs >( "senderHandleNbo" ),
         field< &Self::sequenceNumberNbo, &Self::sequenceNumberNboIs >( "sequenceNumberNbo" ),
         field< &Self::tsSentSecondsNbo, &Self::tsSentSecondsNboIs >( "tsSentSecondsNbo" ),
         field< &Self::tsSentmSecondsNbo, &Self::tsSentmSecondsNboIs >( "tsSentmSecondsNbo" ),
         field< &Self::tsRcvdSecondsNbo, &Self::tsRcvdSecondsNboIs >( "tsRcvdSecondsNbo" ),
         field< &Self::tsRcvdmSecondsNbo, &Self::tsRcvdmSecondsNboIs >( "tsRcvdmSecondsNbo" ),
         field< &Self::version, &Self::versionIs >( "version" ),
         field< &Self::globalFlags, &Self::globalFlagsIs >( "globalFlags" ),
         field< &Self::senderHandle, &Self::senderHandleIs >( "senderHandle" ),
         field< &Self::sequenceNumber, &Self::sequenceNumberIs >( "sequenceNumber" ),
         field< &Self::tsSentSeconds, &Self::tsSentSecondsIs >( "tsSentSeconds" ),
         field< &Self::tsSentmSeconds, &Self::tsSentmSecondsIs >( "tsSentmSeconds" ),
         field< &Self::tsRcvdSeconds, &Self::tsRcvdSecondsIs >( "tsRcvdSeconds" ),
         field< &Self::tsRcvdmSeconds, &Self::tsRcvdmSecondsIs >( "tsRcvdmSeconds" ),
         computed< &Self::valid >( "valid" ), computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 version_;
   Velnet::NetU16 globalFlags_;
   U8 messageType_ = 0;
   U8 replyMode_ = 0;
   U8 returnCode_ = 0;
   U8 returnSubcode_ = 0;
   Velnet::NetU32 senderHandle_;
   Velnet::NetU32 sequenceNumber_;
   Velnet::NetU32 tsSentSeconds_;
   Velnet::NetU32 tsSentmSeconds_;
   Velnet::NetU32 tsRcvdSeconds_;
   Velnet::NetU32 tsRcvdmSeconds_;
};
static_assert( Kiv::isWireView< LspPingHdr, 32 > );

} // namespace LspPing
