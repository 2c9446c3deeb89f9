      * nothing but a comment
