      * nothing but a comment

