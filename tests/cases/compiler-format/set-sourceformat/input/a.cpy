      $SET SOURCEFORMAT"FREE"
01 A PIC X.
$set nobound sourceformat(fixed)
000400 01  B                       PIC X(2).                            IGNORED
