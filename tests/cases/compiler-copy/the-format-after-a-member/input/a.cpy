       >>SOURCE FORMAT FREE
01 REC.
05 A PIC X. COPY FIXED. 05 C PIC X(3).
COPY FREE.
05 E PIC X(5).
>>SOURCE FORMAT FIXED
           COPY FREE REPLACING D BY F.
000100     05  G                   PIC X(6).                              IGNORED
