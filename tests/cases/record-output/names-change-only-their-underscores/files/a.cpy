       01 h identified by "h".
        02 my-item-name PIC X(80) identified by "my_item_name".
        02 --a- PIC X(80) identified by "__a_".
        02 a.b PIC X(80) identified by "a.b".
        02 VALUE PIC X(80) identified by "VALUE".

