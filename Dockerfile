# fdmorph and its example on Debian 12.
#
#   docker build -t fdmorph .
#   docker run --rm fdmorph
#   docker run --rm -v "$PWD:/data" -w /data fdmorph fdmorph a.xsd
#
# The second command shows the record of the example, the third converts a schema of yours.

FROM debian:bookworm-slim AS build
WORKDIR /fdmorph
COPY . .
RUN scripts/example
RUN scripts/packages package && cmake --build --preset release --target package

FROM debian:bookworm-slim
COPY --from=build /fdmorph/build/release/packages/*.deb /packages/
RUN apt-get update && \
    apt-get install -y --no-install-recommends /packages/*.deb && \
    rm -rf /packages /var/lib/apt/lists/*
WORKDIR /example
COPY example .
RUN fdmorph -v order.xml && \
    fdmorph order.xsd -p ORD- -unique && \
    fdmorph order.cbl -x program.xsd && \
    fdmorph -v program.xsd
CMD ["fdrec", "show", "order.cpy"]
