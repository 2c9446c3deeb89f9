one
three

