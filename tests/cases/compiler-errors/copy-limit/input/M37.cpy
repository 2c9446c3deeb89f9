           COPY M38.
