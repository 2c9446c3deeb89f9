       01 größe identified by "größe".
        02 höhe-1 PIC X(80) identified by "höhe_1".

