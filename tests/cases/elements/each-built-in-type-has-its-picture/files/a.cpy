       01 h identified by "h".
        02 e-string PIC X(80) identified by "e-string".
        02 e-boolean PIC X(80) identified by "e-boolean".
        02 e-duration PIC X(80) identified by "e-duration".
        02 e-dateTime PIC X(80) identified by "e-dateTime".
        02 e-time PIC X(80) identified by "e-time".
        02 e-date PIC X(80) identified by "e-date".
        02 e-gYearMonth PIC X(80) identified by "e-gYearMonth".
        02 e-gYear PIC X(80) identified by "e-gYear".
        02 e-gMonthDay PIC X(80) identified by "e-gMonthDay".
        02 e-gDay PIC X(80) identified by "e-gDay".
        02 e-gMonth PIC X(80) identified by "e-gMonth".
        02 e-hexBinary PIC X(80) identified by "e-hexBinary".
        02 e-base64Binary PIC X(80) identified by "e-base64Binary".
        02 e-anyURI PIC X(80) identified by "e-anyURI".
        02 e-QName PIC X(80) identified by "e-QName".
        02 e-normalizedString PIC X(80) identified by 
           "e-normalizedString".
        02 e-token PIC X(80) identified by "e-token".
        02 e-language PIC X(80) identified by "e-language".
        02 e-NMTOKEN PIC X(80) identified by "e-NMTOKEN".
        02 e-Name PIC X(80) identified by "e-Name".
        02 e-NCName PIC X(80) identified by "e-NCName".
        02 e-ID PIC X(80) identified by "e-ID".
        02 e-IDREF PIC X(80) identified by "e-IDREF".
        02 e-ENTITY PIC X(80) identified by "e-ENTITY".
        02 e-nonNegativeInteger PIC 9(18) identified by 
           "e-nonNegativeInteger".
        02 e-unsignedLong PIC 9(18) identified by "e-unsignedLong".
        02 e-unsignedInt PIC 9(18) identified by "e-unsignedInt".
        02 e-unsignedShort PIC 9(18) identified by "e-unsignedShort".
        02 e-unsignedByte PIC 9(18) identified by "e-unsignedByte".
        02 e-positiveInteger PIC 9(18) identified by 
           "e-positiveInteger".
        02 e-integer PIC S9(18) identified by "e-integer".
        02 e-nonPositiveInteger PIC S9(18) identified by 
           "e-nonPositiveInteger".
        02 e-negativeInteger PIC S9(18) identified by 
           "e-negativeInteger".
        02 e-long PIC S9(18) identified by "e-long".
        02 e-int PIC S9(18) identified by "e-int".
        02 e-short PIC S9(18) identified by "e-short".
        02 e-byte PIC S9(18) identified by "e-byte".
        02 e-decimal PIC S9(9)V9(9) identified by "e-decimal".
        02 e-float USAGE COMP-1 identified by "e-float".
        02 e-double USAGE COMP-2 identified by "e-double".

