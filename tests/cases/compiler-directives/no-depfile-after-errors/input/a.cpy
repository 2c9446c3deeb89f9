       77  A PIC Q.
