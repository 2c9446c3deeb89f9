       01 near PIC X(80) identified by "near".

