000100 IDENTIFICATION DIVISION.                                         A
000200 PROGRAM-ID. P.                                                   A
000300 ENVIRONMENT DIVISION.                                            A
000400 CONFIGURATION SECTION.                                           A
000500 SOURCE-COMPUTER.                                                 A
000600     COPY MACHINE.                                                A
000700 SPECIAL-NAMES.                                                   A
000800     COPY                                                         A
000900     NAMES                                                        A
001000     .                                                            A
001100 INPUT-OUTPUT SECTION.                                            A
001200 FILE-CONTROL.                                                    A
001300     SELECT IN-FILE ASSIGN TO DISK COPY CONTROL.                  A
001400 DATA DIVISION.                                                   A
001500 FILE SECTION.                                                    A
001600 FD  IN-FILE COPY CLAUSES REPLACING SOME-RECORD BY IN-RECORD.     A
001700 01  IN-RECORD             COPY ITEMS.                            A
001800 WORKING-STORAGE SECTION.                                         A
001900 77  TOTAL COPY TOTAL.                                            A
